#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include <exiv2/exiv2.hpp>

#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/HeifExif.h"

namespace vellomar {
namespace {

// Numbers of tags.
constexpr std::uint16_t kMake = 0x010f;
constexpr std::uint16_t kModel = 0x0110;
constexpr std::uint16_t kDateTime = 0x0132;
constexpr std::uint16_t kDateTimeOriginal = 0x9003;
constexpr std::uint16_t kDateTimeDigitized = 0x9004;

// The library's names of the two directories.
constexpr std::string_view kMainDirectory = "Image";
constexpr std::string_view kExifDirectory = "Photo";

// Cameras fill fixed fields: with NULs, or with blanks.
std::string withoutPadding(std::string text) {
    text.resize(std::min(text.find('\0'), text.size()));
    text.resize(text.find_last_not_of(" \t\r\n") + 1);
    return text;
}

// By number first: looking a tag up by its name, as the library does, costs as much as parsing a small file.
std::optional<std::string> textUnder(const Exiv2::ExifData& data, std::uint16_t tag, std::string_view directory) {
    const auto found = std::find_if(data.begin(), data.end(), [&](const Exiv2::Exifdatum& datum) {
        return datum.tag() == tag && datum.groupName() == directory;
    });
    if (found == data.end() || found->typeId() != Exiv2::asciiString) return std::nullopt;
    return withoutPadding(found->toString());
}

ImageProperties propertiesOf(const Exiv2::ExifData& data) {
    auto original = textUnder(data, kDateTimeOriginal, kExifDirectory);
    // TIFF/EP, which RAW formats grew from, has it in the main directory.
    if (!original) original = textUnder(data, kDateTimeOriginal, kMainDirectory);
    return {.dateTimeOriginal = std::move(original),
            .dateTimeDigitized = textUnder(data, kDateTimeDigitized, kExifDirectory),
            .dateTime = textUnder(data, kDateTime, kMainDirectory),
            .make = textUnder(data, kMake, kMainDirectory),
            .model = textUnder(data, kModel, kMainDirectory)};
}

const Exiv2::byte* bytesOf(std::span<const std::byte> data) {
    return reinterpret_cast<const Exiv2::byte*>(data.data());
}

ImageProperties readWithExiv2(std::span<const std::byte> file) {
    const auto image = openImage(file);
    // A sidecar is read elsewhere, and by other rules.
    if (!image || image->imageType() == Exiv2::ImageType::xmp) return {};
    return propertiesOf(image->exifData());
}

// A bare block, as a container hands it out.
ImageProperties readExifBlock(std::span<const std::byte> block) {
    Exiv2::ExifData data;
    Exiv2::ExifParser::decode(data, bytesOf(block), static_cast<std::uint32_t>(block.size()));
    return propertiesOf(data);
}

// The libraries throw what they like, and for this file only "no value" follows from it.
template <typename Read>
ImageProperties valueOrNothing(Read read) {
    try {
        return read();
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

ImageProperties readImageProperties(std::span<const std::byte> file) {
    if (file.empty()) return {};
    auto properties = valueOrNothing([&] { return readWithExiv2(file); });
    if (properties != ImageProperties{} || !isHeif(file)) return properties;
    return valueOrNothing([&] { return readExifBlock(exifBlockOfHeif(file)); });
}

}  // namespace vellomar
