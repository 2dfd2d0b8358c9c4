#include "platform/decoder/worker/pixels/RawRaster.h"

#include <memory>
#include <vector>

#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/EmbeddedPreviews.h"
#include "platform/decoder/worker/pixels/GreyRow.h"
#include "platform/decoder/worker/pixels/JpegRaster.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/RawFile.h"
#include "platform/decoder/worker/pixels/VipsRaster.h"

namespace vellomar {
namespace {

// Halves of the size, each pixel from one group of the sensor's: averaged over large areas that is what full size
// gives, at a fraction of the time. No correction that depends on the whole picture.
void prepare(LibRaw& raw) {
    auto& parameters = raw.imgdata.params;
    parameters.half_size = 1;
    parameters.user_flip = 0;
    parameters.no_auto_bright = 1;
    parameters.use_camera_wb = 1;
    parameters.output_bps = 8;
}

std::optional<GreyRaster> rasterOfPixels(const libraw_processed_image_t& image) {
    auto average = AreaAverage::ofSize(image.width, image.height);
    const auto layout = image.colors == 1 ? PixelLayout::grey : PixelLayout::rgb;
    const auto rowLength = image.width * samplesOf(layout);
    if (!average || image.bits != 8 || image.data_size < rowLength * image.height) return std::nullopt;
    const std::span<const std::uint8_t> samples(&image.data[0], image.data_size);
    std::vector<std::uint8_t> grey(image.width);
    for (std::size_t row = 0; row < image.height; ++row) {
        makeGrey(samples.subspan(row * rowLength, rowLength), layout, grey);
        average->addRow(grey);
    }
    return average->raster();
}

std::optional<GreyRaster> developedRaster(LibRaw& raw, const RawBytes& bytes) {
    if (!unpackAllPixels(raw, bytes) || raw.dcraw_process() != LIBRAW_SUCCESS) return std::nullopt;
    int failure = LIBRAW_SUCCESS;
    const ProcessedImage image(raw.dcraw_make_mem_image(&failure));
    return image ? rasterOfPixels(*image) : std::nullopt;
}

std::optional<GreyRaster> rasterOfPreview(std::span<const std::byte> preview) {
    const auto format = formatOfPicture(preview);
    return format == PictureFormat::jpeg ? rasterOfJpeg(preview) : rasterByVips(preview, format);
}

std::optional<GreyRaster> previewRaster(std::span<const std::byte> file) {
    std::optional<GreyRaster> raster;
    offerPreviews(file, [&](std::span<const std::byte> preview) {
        raster = rasterOfPreview(preview);
        return raster.has_value();
    });
    return raster;
}

// Some formats are known to this library alone.
std::optional<GreyRaster> previewRaster(LibRaw& raw) {
    if (raw.unpack_thumb() != LIBRAW_SUCCESS) return std::nullopt;
    int failure = LIBRAW_SUCCESS;
    const ProcessedImage preview(raw.dcraw_make_mem_thumb(&failure));
    if (!preview) return std::nullopt;
    if (preview->type == LIBRAW_IMAGE_BITMAP) return rasterOfPixels(*preview);
    return rasterOfPreview(std::as_bytes(std::span(&preview->data[0], preview->data_size)));
}

}  // namespace

std::optional<GreyRaster> rasterOfRaw(std::span<const std::byte> file) {
    const auto raw = std::make_unique<LibRaw>();
    prepare(*raw);
    RawBytes bytes(file);
    if (raw->open_datastream(&bytes) != LIBRAW_SUCCESS) return std::nullopt;
    if (auto raster = developedRaster(*raw, bytes)) return raster;
    if (auto raster = previewRaster(file)) return raster;
    return previewRaster(*raw);
}

}  // namespace vellomar
