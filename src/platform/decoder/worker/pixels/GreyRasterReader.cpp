#include "platform/decoder/worker/pixels/GreyRasterReader.h"

#include "platform/decoder/worker/pixels/BmpRaster.h"
#include "platform/decoder/worker/pixels/HeifRaster.h"
#include "platform/decoder/worker/pixels/JpegRaster.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/RawRaster.h"
#include "platform/decoder/worker/pixels/VipsRaster.h"

namespace vellomar {

std::optional<GreyRaster> readGreyRaster(std::span<const std::byte> file) {
    const auto format = formatOfPicture(file);
    std::optional<GreyRaster> raster;
    switch (format) {
        case PictureFormat::jpeg: raster = rasterOfJpeg(file); break;
        case PictureFormat::heif: return rasterOfHeif(file);
        case PictureFormat::bmp: return rasterOfBmp(file);
        case PictureFormat::tiff: raster = rasterOfRaw(file); break;
        case PictureFormat::other: return rasterOfRaw(file);
        default: break;
    }
    return raster ? raster : rasterByVips(file, format);
}

}  // namespace vellomar
