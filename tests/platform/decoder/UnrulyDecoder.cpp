// Behaves as badly as the libraries of the real decoder may. A file's first word tells how:
//
//   crash, exit, compute, sleep, stop, eat, throw     what it sounds like
//   babble       answers, but with bytes that are no answer
//   anything     is what the file answers as its date
#include <array>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
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
    if (word == "throw") throw std::runtime_error("no good file");
    if (word == "babble") static_cast<void>(sendMessage(kDecoderSocket, {0xff, 0x00, 0xff}));
    return {.image = {.dateTimeOriginal = std::string(word),
                      .dateTimeDigitized = {},
                      .dateTime = {},
                      .make = {},
                      .model = {}},
            .video = {}};
}

MediaMetadata metadataOf(MediaKind /*kind*/, std::span<const std::byte> file) {
    return behaveAs({reinterpret_cast<const char*>(file.data()), file.size()});
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    if (!limitResources() || !confine()) return 1;
    serveRequests(kDecoderSocket, metadataOf);
    _exit(0);
}
