#include "platform/decoder/worker/pixels/RawRaster.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <vector>

#include <libraw/libraw.h>

#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/EmbeddedPreviews.h"
#include "platform/decoder/worker/pixels/GreyRow.h"
#include "platform/decoder/worker/pixels/JpegRaster.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"
#include "platform/decoder/worker/pixels/VipsRaster.h"

namespace vellomar {
namespace {

struct FreeImage {
    void operator()(libraw_processed_image_t* image) const { LibRaw::dcraw_clear_mem(image); }
};
using ProcessedImage = std::unique_ptr<libraw_processed_image_t, FreeImage>;

// The file as the library reads it. The library takes what lies beyond the end of a file that breaks off for zeros, and
// would make a black picture of them without a word.
class RawBytes : public LibRaw_buffer_datastream {
public:
    // The library reads what it is given and never writes to it, though it does not say so.
    explicit RawBytes(std::span<const std::byte> file)
        : LibRaw_buffer_datastream(std::bit_cast<void*>(file.data()), file.size()) {}

    int read(void* buffer, std::size_t size, std::size_t count) override {
        const int got = LibRaw_buffer_datastream::read(buffer, size, count);
        const auto bytes = static_cast<std::size_t>(std::max(got, 0)) * size;
        missing_ += size * count - std::min(bytes, size * count);
        return got;
    }

    int get_char() override {
        const int character = LibRaw_buffer_datastream::get_char();
        if (character < 0) ++missing_;
        return character;
    }

    // Readers of packed bits look ahead a little, also at the end of a good file.
    [[nodiscard]] bool wereCutShort() const {
        constexpr std::size_t kLookAhead = 4096;
        return missing_ > kLookAhead;
    }

private:
    std::size_t missing_ = 0;
};

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

bool hasDecodableSize(const LibRaw& raw) {
    const auto& sizes = raw.imgdata.sizes;
    return isDecodableSize(sizes.raw_width, sizes.raw_height);
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

bool hasAllPixels(LibRaw& raw, const RawBytes& bytes) {
    return hasDecodableSize(raw) && raw.unpack() == LIBRAW_SUCCESS && raw.error_count() == 0 && !bytes.wereCutShort();
}

std::optional<GreyRaster> developedRaster(LibRaw& raw, const RawBytes& bytes) {
    if (!hasAllPixels(raw, bytes) || raw.dcraw_process() != LIBRAW_SUCCESS) return std::nullopt;
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
