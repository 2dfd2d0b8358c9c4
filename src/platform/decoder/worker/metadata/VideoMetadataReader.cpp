#include "platform/decoder/worker/metadata/VideoMetadataReader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include "platform/Regex.h"

namespace vellomar {
namespace {

constexpr int kBufferSize = 32 * 1024;
constexpr std::int64_t kMostBytesToTellTheType = 1 << 20;
constexpr std::array kCreationKeys = {"com.apple.quicktime.creationdate", "date", "creation_time"};

// What the library reads from: a position in bytes that are all there.
class Source {
public:
    explicit Source(std::span<const std::byte> bytes) : bytes_(bytes) {}

    int read(std::span<std::uint8_t> buffer) {
        const auto rest = bytes_.subspan(std::min(position_, bytes_.size()));
        const auto count = std::min(buffer.size(), rest.size());
        if (count == 0) return AVERROR_EOF;
        std::memcpy(buffer.data(), rest.data(), count);
        position_ += count;
        return static_cast<int>(count);
    }

    std::int64_t seek(std::int64_t offset, int whence) {
        const auto size = static_cast<std::int64_t>(bytes_.size());
        if (whence == AVSEEK_SIZE) return size;
        std::int64_t base = 0;
        if (whence == SEEK_CUR) base = static_cast<std::int64_t>(position_);
        if (whence == SEEK_END) base = size;
        if (offset < -base) return AVERROR(EINVAL);
        position_ = static_cast<std::size_t>(base + offset);
        return base + offset;
    }

private:
    std::span<const std::byte> bytes_;
    std::size_t position_ = 0;
};

int readFrom(void* source, std::uint8_t* buffer, int size) {
    return static_cast<Source*>(source)->read({buffer, static_cast<std::size_t>(size)});
}

std::int64_t seekIn(void* source, std::int64_t offset, int whence) {
    return static_cast<Source*>(source)->seek(offset, whence & ~AVSEEK_FORCE);
}

struct FreeIo {
    void operator()(AVIOContext* io) const {
        av_freep(&io->buffer);  // the library may have replaced the one that it was given
        avio_context_free(&io);
    }
};
using Io = std::unique_ptr<AVIOContext, FreeIo>;

struct CloseInput {
    void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
};
using Input = std::unique_ptr<AVFormatContext, CloseInput>;

Io ioOver(Source& source) {
    auto* buffer = static_cast<std::uint8_t*>(av_malloc(kBufferSize));
    if (buffer == nullptr) return nullptr;
    auto* io = avio_alloc_context(buffer, kBufferSize, 0, &source, readFrom, nullptr, seekIn);
    if (io == nullptr) av_free(buffer);
    return Io(io);
}

// Null when the bytes are no video. `io` must outlive the result.
Input openInput(AVIOContext* io) {
    auto* input = avformat_alloc_context();
    if (input == nullptr) return nullptr;
    input->pb = io;
    input->format_probesize = kMostBytesToTellTheType;
    // On failure the library frees the input and makes it null.
    if (avformat_open_input(&input, nullptr, nullptr, nullptr) < 0) return nullptr;
    return Input(input);
}

// A time that the library itself made readable, such as 2021-03-04T05:06:07.000000Z, loses its empty fraction.
std::string textOf(const AVDictionaryEntry& entry) {
    static const Regex libraryTime(R"(\A\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{6}Z\z)");
    constexpr std::string_view kWhole = "2021-03-04T05:06:07";
    const std::string_view text = entry.value;
    return libraryTime.matches(text) ? std::string(text.substr(0, kWhole.size())) + "+0000" : std::string(text);
}

std::optional<std::string> creationDateIn(const AVDictionary* items) {
    for (const auto* key : kCreationKeys)
        if (const auto* entry = av_dict_get(items, key, nullptr, 0)) return textOf(*entry);
    return std::nullopt;
}

void addTexts(std::vector<std::string>& texts, const AVDictionary* items) {
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(items, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr)
        texts.push_back(textOf(*entry));
}

VideoMetadata metadataOf(const AVFormatContext& input) {
    VideoMetadataFormat format{input.iformat->name, {}};
    addTexts(format.texts, input.metadata);
    for (const auto* track : std::span(input.streams, input.nb_streams))
        addTexts(format.texts, track->metadata);
    return {creationDateIn(input.metadata), {std::move(format)}};
}

}  // namespace

void prepareVideoLibrary() {
    av_log_set_level(AV_LOG_QUIET);
}

VideoMetadata readVideoMetadata(std::span<const std::byte> file) {
    Source source(file);
    const auto io = ioOver(source);
    if (!io) return {};
    const auto input = openInput(io.get());
    if (!input) return {};
    return metadataOf(*input);
}

}  // namespace vellomar
