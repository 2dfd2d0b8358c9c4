#include "platform/decoder/worker/metadata/CameraPropertiesReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <exception>
#include <limits>
#include <string>
#include <string_view>

#include <exiv2/exiv2.hpp>

#include "platform/Text.h"
#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/HeifExif.h"

namespace vellomar {
namespace {

using namespace std::string_view_literals;

// No camera gives more of one property; a count beyond it is damage.
constexpr std::size_t kMostValues = 64;

// A byte that is no UTF-8 is taken for the letter that it was in the encoding which older cameras and programs use.
std::string asUtf8(std::string_view text) {
    constexpr std::uint8_t kFirstLetter = 0xa0;
    std::string result;
    while (!text.empty()) {
        const auto length = utf8CharacterLength(text);
        const auto byte = static_cast<std::uint8_t>(text.front());
        if (length > 0)
            result += text.substr(0, length);
        else if (byte >= kFirstLetter)
            result += {static_cast<char>(0xc0U | byte >> 6U), static_cast<char>(0x80U | (byte & 0x3fU))};
        else
            result += "\xef\xbf\xbd";
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

// Cameras fill fixed fields: with NULs, or with blanks.
std::string_view withoutPaddingAround(std::string_view text) {
    constexpr auto kPadding = "\0 \t\r\n"sv;
    const auto first = text.find_first_not_of(kPadding);
    if (first == std::string_view::npos) return {};
    text.remove_prefix(first);
    text = text.substr(0, text.find('\0'));
    return text.substr(0, text.find_last_not_of(kPadding) + 1);
}

// The library makes a text of what stands before the first NUL alone.
std::string bytesOf(const Exiv2::Exifdatum& datum) {
    std::string bytes(static_cast<std::size_t>(datum.size()), '\0');
    datum.copy(reinterpret_cast<Exiv2::byte*>(bytes.data()), Exiv2::invalidByteOrder);
    return bytes;
}

// One directory of a file's metadata, by the library's name for it.
class Directory {
public:
    Directory(const Exiv2::ExifData& data, std::string_view name) : data_(data), name_(name) {}

    [[nodiscard]] std::optional<std::string> textUnder(std::uint16_t tag) const {
        const auto* found = find(tag);
        if (found == nullptr || found->typeId() != Exiv2::asciiString) return std::nullopt;
        auto text = asUtf8(withoutPaddingAround(bytesOf(*found)));
        if (text.empty()) return std::nullopt;
        return text;
    }

    [[nodiscard]] std::vector<int> numbersUnder(std::uint16_t tag) const {
        const auto* found = find(tag);
        if (found == nullptr || !isWholeNumber(*found)) return {};
        std::vector<int> numbers;
        for (long i = 0; i < std::min<long>(found->count(), kMostValues); ++i) {
            const long number = found->toLong(i);
            if (number < 0 || number > std::numeric_limits<int>::max()) return {};
            numbers.push_back(static_cast<int>(number));
        }
        return numbers;
    }

    [[nodiscard]] std::optional<int> numberUnder(std::uint16_t tag) const {
        const auto numbers = numbersUnder(tag);
        return numbers.empty() ? std::nullopt : std::optional(numbers.front());
    }

    // All `count` fractions of a property that has so many.
    template <std::size_t count>
    [[nodiscard]] std::optional<std::array<double, count>> fractionsUnder(std::uint16_t tag) const {
        const auto* found = find(tag);
        if (found == nullptr || !isFraction(*found) || found->count() < static_cast<long>(count)) return std::nullopt;
        std::array<double, count> fractions{};
        for (std::size_t i = 0; i < count; ++i) {
            const auto denominator = denominatorOf(*found, static_cast<long>(i));
            if (denominator == 0) return std::nullopt;
            fractions[i] = numeratorOf(*found, static_cast<long>(i)) / denominator;
        }
        return fractions;
    }

    [[nodiscard]] std::optional<double> fractionUnder(std::uint16_t tag) const {
        const auto fractions = fractionsUnder<1>(tag);
        return fractions ? std::optional(fractions->front()) : std::nullopt;
    }

private:
    // By number first: looking a tag up by its name, as the library does, costs as much as parsing a small file.
    [[nodiscard]] const Exiv2::Exifdatum* find(std::uint16_t tag) const {
        const auto found = std::find_if(data_.begin(), data_.end(), [&](const Exiv2::Exifdatum& datum) {
            return datum.tag() == tag && datum.groupName() == name_;
        });
        return found == data_.end() ? nullptr : &*found;
    }

    static bool isWholeNumber(const Exiv2::Exifdatum& datum) {
        using namespace Exiv2;
        constexpr std::array kTypes = {unsignedByte, unsignedShort, unsignedLong, signedByte, signedShort, signedLong};
        return std::ranges::find(kTypes, datum.typeId()) != kTypes.end();
    }

    static bool isFraction(const Exiv2::Exifdatum& datum) {
        return datum.typeId() == Exiv2::unsignedRational || datum.typeId() == Exiv2::signedRational;
    }

    // The library hands out a fraction as signed numbers of 32 bits, whatever it is.
    static double partOf(const Exiv2::Exifdatum& datum, std::int32_t part) {
        if (datum.typeId() == Exiv2::unsignedRational) return static_cast<std::uint32_t>(part);
        return part;
    }
    static double numeratorOf(const Exiv2::Exifdatum& datum, long index) {
        return partOf(datum, datum.toRational(index).first);
    }
    static double denominatorOf(const Exiv2::Exifdatum& datum, long index) {
        return partOf(datum, datum.toRational(index).second);
    }

    const Exiv2::ExifData& data_;
    std::string_view name_;
};

// Degrees, minutes and seconds as degrees.
std::optional<double> degreesUnder(const Directory& position, std::uint16_t tag) {
    constexpr double kInOne = 60;
    const auto parts = position.fractionsUnder<3>(tag);
    if (!parts) return std::nullopt;
    const auto [degrees, minutes, seconds] = *parts;
    return degrees + (minutes + seconds / kInOne) / kInOne;
}

void addTexts(CameraProperties& properties, const Directory& main, const Directory& exif) {
    properties.cameraMake = main.textUnder(0x010f);
    properties.cameraModel = main.textUnder(0x0110);
    properties.software = main.textUnder(0x0131);
    properties.artist = main.textUnder(0x013b);
    properties.lensMake = exif.textUnder(0xa433);
    properties.lensModel = exif.textUnder(0xa434);
}

void addExposure(CameraProperties& properties, const Directory& exif) {
    properties.focalLength = exif.fractionUnder(0x920a);
    properties.fNumber = exif.fractionUnder(0x829d);
    properties.exposureTime = exif.fractionUnder(0x829a);
    properties.isoSpeeds = exif.numbersUnder(0x8827);
    properties.flash = exif.numberUnder(0x9209);
    properties.brightness = exif.fractionUnder(0x9203);
    properties.whiteBalance = exif.numberUnder(0xa403);
    properties.meteringMode = exif.numberUnder(0x9207);
}

void addPosition(CameraProperties& properties, const Directory& position) {
    properties.latitudeRef = position.textUnder(0x0001);
    properties.latitude = degreesUnder(position, 0x0002);
    properties.longitudeRef = position.textUnder(0x0003);
    properties.longitude = degreesUnder(position, 0x0004);
    properties.altitude = position.fractionUnder(0x0006);
}

CameraProperties propertiesIn(const Exiv2::ExifData& data) {
    CameraProperties properties;
    const Directory exif(data, "Photo");
    addTexts(properties, Directory(data, "Image"), exif);
    addExposure(properties, exif);
    addPosition(properties, Directory(data, "GPSInfo"));
    return properties;
}

// No size unless both are numbers of pixels.
bool setSize(CameraProperties& properties, std::optional<int> width, std::optional<int> height) {
    if (width.value_or(0) <= 0 || height.value_or(0) <= 0) return false;
    properties.width = width;
    properties.height = height;
    return true;
}

bool setSizeOf(CameraProperties& properties, const Directory& directory, std::uint16_t width, std::uint16_t height) {
    return setSize(properties, directory.numberUnder(width), directory.numberUnder(height));
}

// The library does not know the size of every RAW picture.
void setSizeIn(CameraProperties& properties, const Exiv2::ExifData& data) {
    if (setSizeOf(properties, Directory(data, "Photo"), 0xa002, 0xa003)) return;
    static_cast<void>(setSizeOf(properties, Directory(data, "Image"), 0x0100, 0x0101));
}

// Whether the bytes are what the library calls an image; it opens videos and sidecars as well.
bool isImage(const Exiv2::Image& image) {
    const auto type = image.mimeType();
    return type.starts_with("image/") && type != "image/generic";
}

std::optional<CameraProperties> readKnownImage(std::span<const std::byte> file) {
    const auto image = openImage(file);
    if (!image || !isImage(*image)) return std::nullopt;
    auto properties = propertiesIn(image->exifData());
    if (!setSize(properties, image->pixelWidth(), image->pixelHeight())) setSizeIn(properties, image->exifData());
    return properties;
}

std::optional<CameraProperties> readExifOfHeif(std::span<const std::byte> file) {
    const auto block = exifBlockOfHeif(file);
    if (block.empty()) return std::nullopt;
    Exiv2::ExifData data;
    Exiv2::ExifParser::decode(data, reinterpret_cast<const Exiv2::byte*>(block.data()),
                              static_cast<std::uint32_t>(block.size()));
    return propertiesIn(data);
}

// The libraries throw what they like, and for this file only "no value" follows from it.
std::optional<CameraProperties> orNothing(std::optional<CameraProperties> (*read)(std::span<const std::byte>),
                                          std::span<const std::byte> file) {
    try {
        return read(file);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

bool tellsOfACamera(std::optional<CameraProperties> properties) {
    if (!properties) return false;
    properties->width.reset();
    properties->height.reset();
    return properties != CameraProperties{};
}

// Of these files the library often takes the size that the metadata tell, which is that of a picture from which this
// one was made.
std::optional<CameraProperties> readHeif(std::span<const std::byte> file) {
    auto properties = orNothing(readKnownImage, file);
    if (!tellsOfACamera(properties))
        if (auto others = orNothing(readExifOfHeif, file)) properties = others;
    const HeifFile heif(file);
    if (heif.firstImage() == nullptr) return properties;
    auto whole = properties.value_or(CameraProperties{});
    static_cast<void>(setSize(whole, heif_image_handle_get_ispe_width(heif.firstImage()),
                              heif_image_handle_get_ispe_height(heif.firstImage())));
    return whole;
}

}  // namespace

std::optional<CameraProperties> readCameraProperties(std::span<const std::byte> file) {
    if (file.empty()) return std::nullopt;
    auto properties = isHeif(file) ? readHeif(file) : orNothing(readKnownImage, file);
    if (properties == CameraProperties{}) return std::nullopt;
    return properties;
}

}  // namespace vellomar
