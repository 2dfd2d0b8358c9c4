#include "platform/decoder/MetadataMessages.h"

#include <algorithm>
#include <span>

#include <nlohmann/json.hpp>

namespace vellomar {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kLongestText = 1024;
constexpr std::size_t kRoomForVideoTexts = kMostBytesOfMessage - 16 * kLongestText;
constexpr std::size_t kOverheadOfText = 8;

Json::binary_t bytesOf(const std::string& text) {
    const auto length = static_cast<std::ptrdiff_t>(std::min(text.size(), kLongestText));
    return {MessageBytes(text.begin(), text.begin() + length)};
}

// A text is sent as bytes, since nothing promises that it is UTF-8.
Json encoded(const std::optional<std::string>& text) {
    return text ? Json(bytesOf(*text)) : Json(nullptr);
}

Json encoded(const ImageProperties& image) {
    return Json::array({encoded(image.dateTimeOriginal), encoded(image.dateTimeDigitized), encoded(image.dateTime),
                        encoded(image.make), encoded(image.model)});
}

// Takes from `room` what the text needs. Nothing if that is more than there is; then no later text has room either.
std::optional<Json> encodedWithin(std::size_t& room, const std::string& text) {
    const auto needed = std::min(text.size(), kLongestText) + kOverheadOfText;
    if (needed > room) {
        room = 0;
        return std::nullopt;
    }
    room -= needed;
    return Json(bytesOf(text));
}

Json encoded(const VideoMetadata& video) {
    auto room = kRoomForVideoTexts;
    auto formats = Json::array();
    for (const auto& format : video.formats) {
        auto identifier = encodedWithin(room, format.identifier);
        if (!identifier) break;
        auto texts = Json::array();
        for (const auto& text : format.texts) {
            auto value = encodedWithin(room, text);
            if (!value) break;
            texts.push_back(*std::move(value));
        }
        formats.push_back(Json::array({*std::move(identifier), std::move(texts)}));
    }
    return Json::array({encoded(video.creationDate), std::move(formats)});
}

// Reads the one shape that an answer has, of arrays, byte texts and nulls. The library's own reader follows arrays and
// texts in pieces to any depth of the stack and throws at some lengths, but a file may have taken over the decoder, and
// then the bytes are the file's. Each function is false for anything else; what it should have read is then of no use.
class AnswerReader {
public:
    explicit AnswerReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    bool read(MediaMetadata& metadata) {
        return beginsArrayOf(2) && read(metadata.image) && read(metadata.video) && rest_.empty();
    }

private:
    // What stands in the upper three bits of a value's first byte.
    enum class Type : std::uint8_t { bytes = 2, array = 4 };

    static constexpr std::uint8_t kNull = 0xf6;

    bool read(ImageProperties& image) {
        return beginsArrayOf(5) && read(image.dateTimeOriginal) && read(image.dateTimeDigitized) &&
               read(image.dateTime) && read(image.make) && read(image.model);
    }

    bool read(VideoMetadata& video) { return beginsArrayOf(2) && read(video.creationDate) && read(video.formats); }

    bool read(VideoMetadataFormat& format) { return beginsArrayOf(2) && read(format.identifier) && read(format.texts); }

    // Each element takes a byte at least, so that no count makes the list longer than the answer.
    template <typename Element>
    bool read(std::vector<Element>& list) {
        const auto count = lengthOf(Type::array);
        if (!count) return false;
        for (std::size_t i = 0; i < *count; ++i)
            if (!read(list.emplace_back())) return false;
        return true;
    }

    bool read(std::optional<std::string>& text) {
        if (rest_.empty()) return false;
        if (rest_.front() != kNull) return read(text.emplace());
        rest_ = rest_.subspan(1);
        return true;
    }

    bool read(std::string& text) {
        const auto length = lengthOf(Type::bytes);
        if (!length || *length > rest_.size()) return false;
        text.assign(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(*length));
        rest_ = rest_.subspan(*length);
        return true;
    }

    bool beginsArrayOf(std::size_t count) { return lengthOf(Type::array) == count; }

    // The length of a value of this type, which begins here. It stands in the lower five bits of the first byte, or in
    // one, two or four bytes behind it, most significant first.
    std::optional<std::size_t> lengthOf(Type type) {
        constexpr unsigned kInOneByte = 24;
        constexpr unsigned kInFourBytes = 26;
        if (rest_.empty() || rest_.front() >> 5U != static_cast<unsigned>(type)) return std::nullopt;
        const auto form = rest_.front() & 0x1fU;
        rest_ = rest_.subspan(1);
        if (form < kInOneByte) return form;
        if (form > kInFourBytes) return std::nullopt;
        return numberOf(std::size_t{1} << (form - kInOneByte));
    }

    // The number in the next `width` bytes.
    std::optional<std::size_t> numberOf(std::size_t width) {
        if (rest_.size() < width) return std::nullopt;
        std::size_t number = 0;
        for (const auto byte : rest_.first(width))
            number = number << 8U | byte;
        rest_ = rest_.subspan(width);
        return number;
    }

    std::span<const std::uint8_t> rest_;
};

}  // namespace

MessageBytes metadataAnswer(const MediaMetadata& metadata) {
    return Json::to_cbor(Json::array({encoded(metadata.image), encoded(metadata.video)}));
}

std::optional<MediaMetadata> metadataFromAnswer(const MessageBytes& bytes) {
    MediaMetadata metadata;
    if (!AnswerReader(bytes).read(metadata)) return std::nullopt;
    return metadata;
}

}  // namespace vellomar
