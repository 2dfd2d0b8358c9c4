// Behaves as badly as the libraries of the real decoder may. A file's first word tells how:
//
//   crash, exit, compute, sleep, stop, eat, throw     what it sounds like
//   babble       answers, but with bytes that are no answer
//   threads      computes for a second, in another thread than the first
//   large, missing  answers with a thumbnail larger than asked for, or without its pixels
//   anything     is what the file answers as its date
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <unistd.h>

#include "platform/decoder/CameraPropertyMessages.h"
#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/PixelMessages.h"
#include "platform/decoder/SocketMessages.h"
#include "platform/decoder/worker/Confinement.h"
#include "platform/decoder/worker/RequestLoop.h"

namespace vellomar {
namespace {

void computeForEver() {
    volatile unsigned steps = 0;
    while (true)
        steps = steps + 1;
}

void computeForASecond() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(1);
    while (Clock::now() < end)
        continue;
}

void sleepForEver() {
    while (true) {
        const timespec anHour{3600, 0};
        ::nanosleep(&anHour, nullptr);
    }
}

// Fills memory until none is given any more.
void eatMemory() {
    constexpr std::size_t kMouthful = 16U << 20U;
    std::vector<std::unique_ptr<std::vector<char>>> eaten;
    while (true)
        eaten.push_back(std::make_unique<std::vector<char>>(kMouthful, 'x'));
}

MediaMetadata behaveAs(std::string_view word) {
    if (word == "crash") std::abort();
    if (word == "exit") _exit(0);
    if (word == "compute") computeForEver();
    if (word == "sleep") sleepForEver();
    if (word == "stop") std::raise(SIGSTOP);
    if (word == "eat") eatMemory();
    if (word == "threads") std::thread(computeForASecond).join();
    if (word == "throw") throw std::runtime_error("no good file");
    if (word == "babble") static_cast<void>(sendMessage(kDecoderSocket, {0xff, 0x00, 0xff}));
    return {.image = {.dateTimeOriginal = std::string(word),
                      .dateTimeDigitized = {},
                      .dateTime = {},
                      .make = {},
                      .model = {}},
            .video = {}};
}

std::string_view wordIn(const RequestedFile& file) {
    return {reinterpret_cast<const char*>(file.content.data()), file.content.size()};
}

MessageBytes metadata(const RequestedFile& file) {
    return metadataAnswer(behaveAs(wordIn(file)));
}

// The word is the camera.
MessageBytes cameraProperties(const RequestedFile& file) {
    static_cast<void>(behaveAs(wordIn(file)));
    CameraProperties properties;
    properties.cameraModel = wordIn(file);
    return cameraPropertiesAnswer(properties);
}

// The word's first letter is the colour of the whole raster.
MessageBytes raster(const RequestedFile& file) {
    static_cast<void>(behaveAs(wordIn(file)));
    GreyRaster raster;
    raster.pixels.fill(static_cast<std::uint8_t>(wordIn(file).front()));
    return rasterAnswer(raster);
}

// The word itself is the picture. Then it lies in wait to take it away again.
MessageBytes picture(const RequestedFile& file) {
    const auto word = wordIn(file);
    static_cast<void>(behaveAs(word));
    static_cast<void>(::write(file.output, word.data(), word.size()));
    static_cast<void>(::ftruncate(file.output, 0));
    return pictureWrittenAnswer();
}

// One dark pixel.
MessageBytes thumbnail(const RequestedFile& file) {
    const auto word = wordIn(file);
    static_cast<void>(behaveAs(word));
    const std::vector<std::uint8_t> samples(word == "large" ? 3 * static_cast<std::size_t>(file.size + 1) : 3);
    if (word != "missing") static_cast<void>(::write(file.output, samples.data(), samples.size()));
    return thumbnailAnswer(word == "large" ? file.size + 1 : 1, 1);
}

constexpr std::size_t kMostMemory = std::size_t{1} << 30U;

RequestHandlers handlers() {
    using namespace std::chrono_literals;
    return {{DecoderRequest::imageMetadata, {700ms, metadata}},
            {DecoderRequest::cameraProperties, {700ms, cameraProperties}},
            {DecoderRequest::greyRaster, {2s, raster}},
            {DecoderRequest::jpeg, {2s, picture}},
            {DecoderRequest::thumbnail, {2s, thumbnail}}};
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    if (!limitResources(kMostMemory) || !confine()) return 1;
    serveRequests(kDecoderSocket, handlers());
    _exit(0);
}
