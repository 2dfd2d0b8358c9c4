#include "platform/decoder/worker/pixels/RawThumbnail.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

#include <exiv2/exiv2.hpp>

#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/RawFile.h"
#include "platform/decoder/worker/pixels/VipsThumbnail.h"

namespace vellomar {
namespace {

using Properties = Exiv2::PreviewProperties;

// Whatever the camera was held like, by the RAW library's own numbers.
int orientationOf(const LibRaw& raw) {
    constexpr std::array kOrientations = {1, 2, 4, 3, 5, 8, 6, 7};
    const auto flip = static_cast<std::size_t>(raw.imgdata.sizes.flip);
    return flip < kOrientations.size() ? kOrientations[flip] : kUpright;
}

// What the file itself says; nothing if it does not.
std::optional<int> orientationIn(const Exiv2::ExifData& data) {
    constexpr long kMost = 8;
    const auto found = data.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    if (found == data.end() || found->count() == 0) return std::nullopt;
    const long orientation = found->toLong();
    if (orientation < kUpright || orientation > kMost) return std::nullopt;
    return static_cast<int>(orientation);
}

// Some cameras put black bars around the smallest preview, so that its proportions are not those of the others.
bool isLike(const Properties& largest, const Properties& preview) {
    constexpr double kMostDifference = 0.03;
    const auto one = static_cast<double>(largest.width_) * static_cast<double>(preview.height_);
    const auto other = static_cast<double>(preview.width_) * static_cast<double>(largest.height_);
    return std::abs(one - other) <= kMostDifference * one;
}

// In the order in which they are to be tried.
std::vector<Properties> previewsFor(int size, const std::vector<Properties>& smallestFirst) {
    const auto isEnough = [&](const Properties& preview) {
        return std::min(preview.width_, preview.height_) >= static_cast<std::size_t>(size) &&
               isLike(smallestFirst.back(), preview);
    };
    std::vector<Properties> previews;
    if (smallestFirst.empty()) return previews;
    std::ranges::copy_if(smallestFirst, std::back_inserter(previews), isEnough);
    std::copy_if(smallestFirst.rbegin(), smallestFirst.rend(), std::back_inserter(previews),
                 [&](const Properties& preview) { return !isEnough(preview); });
    return previews;
}

// Reads one kind of file only: a preview that is none of these is no picture.
std::optional<RgbPicture> thumbnailOfPreview(std::span<const std::byte> preview, int size, int orientation) {
    const auto format = formatOfPicture(preview);
    if (format != PictureFormat::jpeg && format != PictureFormat::tiff) return std::nullopt;
    return thumbnailByVips(preview, format, size, orientation);
}

std::optional<RgbPicture> thumbnailOfPreviews(const Exiv2::Image& image, int size, int orientation) {
    const Exiv2::PreviewManager manager(image);
    for (const auto& one : previewsFor(size, manager.getPreviewProperties())) {
        const auto preview = manager.getPreviewImage(one);
        const auto bytes = std::as_bytes(std::span(preview.pData(), preview.size()));
        if (auto thumbnail = thumbnailOfPreview(bytes, size, orientation)) return thumbnail;
    }
    return std::nullopt;
}

// The library throws over what it does not understand; others may.
std::optional<RgbPicture> thumbnailOfKnownPreviews(const Exiv2::Image& image, int size, int otherOrientation) {
    try {
        return thumbnailOfPreviews(image, size, orientationIn(image.exifData()).value_or(otherOrientation));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// Null for a file that the library of metadata does not know.
std::unique_ptr<Exiv2::Image> knownImage(std::span<const std::byte> file) {
    try {
        return openImage(file);
    } catch (const std::exception&) {
        return nullptr;
    }
}

bool beginsAsForeign(std::span<const std::byte> file) {
    const std::string_view bytes(reinterpret_cast<const char*>(file.data()), file.size());
    return bytes.starts_with("FOVb") || bytes.starts_with("IIII") || bytes.starts_with("MMMM");
}

// The RAW library takes any file for one of a camera without a file format if only its length is right. What a camera
// wrote begins as such a file does; a TIFF file tells of the camera besides.
bool isOfCamera(std::span<const std::byte> file, const Exiv2::Image* image, const LibRaw& raw) {
    if (image == nullptr) return beginsAsForeign(file);
    if (formatOfPicture(file) != PictureFormat::tiff || raw.imgdata.idata.dng_version != 0) return true;
    const auto& data = image->exifData();
    return data.findKey(Exiv2::ExifKey("Exif.Image.Make")) != data.end();
}

std::optional<RgbPicture> thumbnailOfPixels(const libraw_processed_image_t& pixels, int size, int orientation) {
    if (pixels.bits != 8 || (pixels.colors != 1 && pixels.colors != 3)) return std::nullopt;
    const std::span<const std::uint8_t> samples(&pixels.data[0], pixels.data_size);
    auto image = withOrientation(imageOverSamples(samples, pixels.width, pixels.height, pixels.colors), orientation);
    return image ? thumbnailOfImage(image.get(), size) : std::nullopt;
}

// Some formats are known to this library alone.
std::optional<RgbPicture> thumbnailOfOwnPreview(LibRaw& raw, int size) {
    if (raw.unpack_thumb() != LIBRAW_SUCCESS) return std::nullopt;
    const int orientation = orientationOf(raw);
    const auto& preview = raw.imgdata.thumbnail;
    if (preview.tformat == LIBRAW_THUMBNAIL_JPEG)
        return thumbnailOfPreview(std::as_bytes(std::span(preview.thumb, preview.tlength)), size, orientation);
    int failure = LIBRAW_SUCCESS;
    const ProcessedImage pixels(raw.dcraw_make_mem_thumb(&failure));
    return pixels && pixels->type == LIBRAW_IMAGE_BITMAP ? thumbnailOfPixels(*pixels, size, orientation) : std::nullopt;
}

// The library turns what it develops.
std::optional<RgbPicture> developedThumbnail(LibRaw& raw, const RawBytes& bytes, int size) {
    if (!unpackAllPixels(raw, bytes) || raw.dcraw_process() != LIBRAW_SUCCESS) return std::nullopt;
    int failure = LIBRAW_SUCCESS;
    const ProcessedImage pixels(raw.dcraw_make_mem_image(&failure));
    return pixels ? thumbnailOfPixels(*pixels, size, kUpright) : std::nullopt;
}

// Halves of the size, each pixel from one group of the sensor's.
void prepareForThumbnail(LibRaw& raw) {
    auto& parameters = raw.imgdata.params;
    parameters.half_size = 1;
    parameters.use_camera_wb = 1;
    parameters.output_bps = 8;
}

}  // namespace

std::optional<RgbPicture> thumbnailOfRaw(std::span<const std::byte> file, int size) {
    const auto raw = std::make_unique<LibRaw>();
    prepareForThumbnail(*raw);
    RawBytes bytes(file);
    if (raw->open_datastream(&bytes) != LIBRAW_SUCCESS) return std::nullopt;
    const auto image = knownImage(file);
    if (!isOfCamera(file, image.get(), *raw)) return std::nullopt;
    if (image)
        if (auto thumbnail = thumbnailOfKnownPreviews(*image, size, orientationOf(*raw))) return thumbnail;
    if (auto thumbnail = thumbnailOfOwnPreview(*raw, size)) return thumbnail;
    return developedThumbnail(*raw, bytes, size);
}

std::optional<RgbPicture> thumbnailOfPreviewIn(std::span<const std::byte> file, int size) {
    const auto image = knownImage(file);
    return image ? thumbnailOfKnownPreviews(*image, size, kUpright) : std::nullopt;
}

}  // namespace vellomar
