#include "platform/decoder/worker/pixels/ThumbnailReader.h"

#include "platform/decoder/ThumbnailRaster.h"
#include "platform/decoder/worker/pixels/BmpPicture.h"
#include "platform/decoder/worker/pixels/HeifThumbnail.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/RawThumbnail.h"
#include "platform/decoder/worker/pixels/VipsThumbnail.h"

namespace vellomar {
namespace {

std::optional<RgbPicture> thumbnailOfBmp(std::span<const std::byte> file, int size) {
    const auto picture = decodeBmp(file);
    if (!picture) return std::nullopt;
    constexpr int kChannels = 3;
    const auto image = imageOverSamples(picture->samples, picture->width, picture->height, kChannels);
    return image ? thumbnailOfImage(image.get(), size) : std::nullopt;
}

// Most RAW formats look like TIFF files. One that breaks off, or that no library can develop, may still be a TIFF file
// with a small picture in it.
std::optional<RgbPicture> thumbnailOfTiffOrRaw(std::span<const std::byte> file, PictureFormat format, int size) {
    if (auto thumbnail = thumbnailOfRaw(file, size)) return thumbnail;
    if (format == PictureFormat::tiff)
        if (auto thumbnail = thumbnailByVips(file, format, size)) return thumbnail;
    return thumbnailOfPreviewIn(file, size);
}

}  // namespace

std::optional<RgbPicture> readThumbnail(std::span<const std::byte> file, int size) {
    if (size < 1 || size > ThumbnailRaster::kMostSize) return std::nullopt;
    const auto format = formatOfPicture(file);
    switch (format) {
        case PictureFormat::heif: return thumbnailOfHeif(file, size);
        case PictureFormat::bmp: return thumbnailOfBmp(file, size);
        case PictureFormat::tiff:
        case PictureFormat::other: return thumbnailOfTiffOrRaw(file, format, size);
        default: return thumbnailByVips(file, format, size);
    }
}

}  // namespace vellomar
