#include "platform/decoder/MetadataMessages.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace vellomar {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kLongestText = 1024;
constexpr std::size_t kRoomForVideoTexts = kMostBytesOfMessage - 16 * kLongestText;
constexpr std::size_t kOverheadOfText = 8;

Json::binary_t bytesOf(const std::string& text) {
    return Json::binary_t(
        {text.begin(), text.begin() + static_cast<std::ptrdiff_t>(std::min(text.size(), kLongestText))});
}

// A text is sent as bytes, since nothing promises that it is UTF-8.
Json encoded(const std::optional<std::string>& text) {
    return text ? Json(bytesOf(*text)) : Json(nullptr);
}

std::string textFrom(const Json& value) {
    const auto& bytes = value.get_binary();
    return {bytes.begin(), bytes.end()};
}

std::optional<std::string> optionalTextFrom(const Json& value) {
    if (value.is_null()) return std::nullopt;
    return textFrom(value);
}

Json encoded(const ImageProperties& image) {
    return Json::array({encoded(image.dateTimeOriginal), encoded(image.dateTimeDigitized), encoded(image.dateTime),
                        encoded(image.make), encoded(image.model)});
}

ImageProperties imageFrom(const Json& value) {
    return {.dateTimeOriginal = optionalTextFrom(value.at(0)),
            .dateTimeDigitized = optionalTextFrom(value.at(1)),
            .dateTime = optionalTextFrom(value.at(2)),
            .make = optionalTextFrom(value.at(3)),
            .model = optionalTextFrom(value.at(4))};
}

// Takes from `room` what the text needs. Nothing if that is more than there is.
std::optional<Json> encodedWithin(std::size_t& room, const std::string& text) {
    const auto needed = std::min(text.size(), kLongestText) + kOverheadOfText;
    if (needed > room) return std::nullopt;
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

VideoMetadata videoFrom(const Json& value) {
    VideoMetadata video{optionalTextFrom(value.at(0)), {}};
    for (const auto& format : value.at(1)) {
        auto& added = video.formats.emplace_back(VideoMetadataFormat{textFrom(format.at(0)), {}});
        for (const auto& text : format.at(1))
            added.texts.push_back(textFrom(text));
    }
    return video;
}

constexpr std::uint8_t kImageRequest = 'i';
constexpr std::uint8_t kVideoRequest = 'v';

}  // namespace

MessageBytes metadataRequest(MediaKind kind) {
    return {kind == MediaKind::image ? kImageRequest : kVideoRequest};
}

std::optional<MediaKind> kindFromRequest(const MessageBytes& bytes) {
    if (bytes == metadataRequest(MediaKind::image)) return MediaKind::image;
    if (bytes == metadataRequest(MediaKind::video)) return MediaKind::video;
    return std::nullopt;
}

MessageBytes metadataAnswer(const MediaMetadata& metadata) {
    return Json::to_cbor(Json::array({encoded(metadata.image), encoded(metadata.video)}));
}

std::optional<MediaMetadata> metadataFromAnswer(const MessageBytes& bytes) {
    constexpr bool kStrict = true;
    constexpr bool kMayThrow = false;
    const auto value = Json::from_cbor(bytes, kStrict, kMayThrow);
    if (value.is_discarded()) return std::nullopt;
    try {
        return MediaMetadata{imageFrom(value.at(0)), videoFrom(value.at(1))};
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

}  // namespace vellomar
