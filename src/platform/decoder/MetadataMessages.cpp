#include "platform/decoder/MetadataMessages.h"

#include <algorithm>
#include <span>

#include <nlohmann/json.hpp>

#include "platform/decoder/CborReader.h"

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

// Reads the one shape that an answer has. Each function is false for anything else; what it should have read is then of
// no use.
class AnswerReader {
public:
    explicit AnswerReader(std::span<const std::uint8_t> bytes) : values_(bytes) {}

    bool read(MediaMetadata& metadata) {
        return values_.beginsArrayOf(2) && read(metadata.image) && read(metadata.video) && values_.isAtEnd();
    }

private:
    bool read(ImageProperties& image) {
        return values_.beginsArrayOf(5) && values_.read(image.dateTimeOriginal) &&
               values_.read(image.dateTimeDigitized) && values_.read(image.dateTime) && values_.read(image.make) &&
               values_.read(image.model);
    }

    bool read(VideoMetadata& video) {
        return values_.beginsArrayOf(2) && values_.read(video.creationDate) && read(video.formats);
    }

    bool read(VideoMetadataFormat& format) {
        return values_.beginsArrayOf(2) && read(format.identifier) && read(format.texts);
    }

    bool read(std::string& text) { return values_.read(text); }

    // Each element takes a byte at least, so that no count makes the list longer than the answer.
    template <typename Element>
    bool read(std::vector<Element>& list) {
        const auto count = values_.lengthOfArray();
        if (!count) return false;
        for (std::size_t i = 0; i < *count; ++i)
            if (!read(list.emplace_back())) return false;
        return true;
    }

    CborReader values_;
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
