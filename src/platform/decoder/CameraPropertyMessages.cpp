#include "platform/decoder/CameraPropertyMessages.h"

#include <algorithm>
#include <span>
#include <tuple>

#include <nlohmann/json.hpp>

#include "platform/Text.h"
#include "platform/decoder/CborReader.h"

namespace vellomar {
namespace {

using Json = nlohmann::json;

// All properties in the order in which they are sent.
template <typename Properties>
auto fieldsOf(Properties& all) {
    return std::tie(all.cameraMake, all.cameraModel, all.software, all.artist, all.lensMake, all.lensModel, all.width,
                    all.height, all.focalLength, all.fNumber, all.exposureTime, all.isoSpeeds, all.flash,
                    all.brightness, all.whiteBalance, all.meteringMode, all.latitude, all.latitudeRef, all.longitude,
                    all.longitudeRef, all.altitude);
}
constexpr std::size_t kFields = std::tuple_size_v<decltype(fieldsOf(std::declval<CameraProperties&>()))>;

std::size_t lengthOfWholeCharacters(const std::string& text) {
    if (text.size() <= kLongestCameraText) return text.size();
    constexpr unsigned kInsideMask = 0xc0;
    constexpr unsigned kInside = 0x80;
    auto length = kLongestCameraText;
    while (length > 0 && (static_cast<std::uint8_t>(text[length]) & kInsideMask) == kInside)
        --length;
    return length;
}

Json valueOf(const std::optional<std::string>& text) {
    if (!text) return nullptr;
    const auto length = static_cast<std::ptrdiff_t>(lengthOfWholeCharacters(*text));
    return Json::binary_t(MessageBytes(text->begin(), text->begin() + length));
}

template <typename Number>
Json valueOf(const std::optional<Number>& number) {
    return number ? Json(*number) : Json(nullptr);
}

Json valueOf(const std::vector<int>& numbers) {
    auto list = Json::array();
    for (const int number : std::span(numbers).first(std::min(numbers.size(), kMostIsoSpeeds)))
        list.push_back(number);
    return list;
}

bool readField(CborReader& reader, std::optional<std::string>& text) {
    return reader.read(text) && (!text || (text->size() <= kLongestCameraText && isUtf8(*text)));
}

template <typename Number>
bool readField(CborReader& reader, std::optional<Number>& number) {
    return reader.read(number);
}

bool readField(CborReader& reader, std::vector<int>& numbers) {
    const auto count = reader.lengthOfArray();
    if (!count || *count > kMostIsoSpeeds) return false;
    numbers.resize(*count);
    return std::ranges::all_of(numbers, [&](int& number) { return reader.read(number); });
}

}  // namespace

MessageBytes cameraPropertiesAnswer(const CameraProperties& properties) {
    auto values = Json::array();
    std::apply([&](const auto&... field) { (values.push_back(valueOf(field)), ...); }, fieldsOf(properties));
    return Json::to_cbor(values);
}

std::optional<CameraProperties> cameraPropertiesFromAnswer(const MessageBytes& bytes) {
    CborReader reader(bytes);
    CameraProperties properties;
    if (!reader.beginsArrayOf(kFields)) return std::nullopt;
    const bool isRead =
        std::apply([&](auto&... field) { return (readField(reader, field) && ...); }, fieldsOf(properties));
    if (!isRead || !reader.isAtEnd()) return std::nullopt;
    return properties;
}

}  // namespace vellomar
