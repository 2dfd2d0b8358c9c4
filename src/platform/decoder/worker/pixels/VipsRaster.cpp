#include "platform/decoder/worker/pixels/VipsRaster.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/GreyRow.h"
#include "platform/decoder/worker/pixels/VipsImage.h"

namespace vellomar {
namespace {

constexpr std::array kPlainKinds = {VIPS_INTERPRETATION_B_W, VIPS_INTERPRETATION_GREY16, VIPS_INTERPRETATION_sRGB,
                                    VIPS_INTERPRETATION_RGB, VIPS_INTERPRETATION_RGB16,  VIPS_INTERPRETATION_CMYK};

// Each format by its own loader: nothing else that the library could load is let in.
VipsImageOwner load(VipsSource* source, PictureFormat format) {
    return imageFrom([&](VipsImage** image) {
        constexpr auto kFromTopToBottom = VIPS_ACCESS_SEQUENTIAL;
        switch (format) {
            case PictureFormat::jpeg: return vips_jpegload_source(source, image, "access", kFromTopToBottom, nullptr);
            case PictureFormat::png: return vips_pngload_source(source, image, "access", kFromTopToBottom, nullptr);
            case PictureFormat::tiff: return vips_tiffload_source(source, image, "access", kFromTopToBottom, nullptr);
            case PictureFormat::webp: return vips_webpload_source(source, image, "access", kFromTopToBottom, nullptr);
            case PictureFormat::gif: return vips_gifload_source(source, image, "access", kFromTopToBottom, nullptr);
            default: return -1;
        }
    });
}

bool isPlain(const VipsImage* image) {
    const auto format = vips_image_get_format(image);
    return (format == VIPS_FORMAT_UCHAR || format == VIPS_FORMAT_USHORT) &&
           std::ranges::find(kPlainKinds, vips_image_get_interpretation(image)) != kPlainKinds.end();
}

// Anything but the usual samples, as in scientific TIFF files, is brought to them by the library.
VipsImageOwner plain(VipsImageOwner image) {
    if (isPlain(image.get())) return image;
    return imageFrom([&](VipsImage** converted) {
        return vips_colourspace(image.get(), converted, VIPS_INTERPRETATION_sRGB, nullptr);
    });
}

std::optional<PixelLayout> layoutOf(const VipsImage* image) {
    const int samples = vips_image_get_bands(image);
    if (samples == 1) return PixelLayout::grey;
    if (samples == 2) return PixelLayout::greyAlpha;
    if (samples == 3) return PixelLayout::rgb;
    if (samples != 4) return std::nullopt;
    const bool isPrint = vips_image_get_interpretation(image) == VIPS_INTERPRETATION_CMYK;
    return isPrint ? PixelLayout::cmyk : PixelLayout::rgba;
}

using Region = std::unique_ptr<VipsRegion, ReleaseObject>;

template <typename Sample>
std::span<const Sample> rowOf(const VipsRegion* region, int row, std::size_t samples) {
    const auto offset = static_cast<std::size_t>(row - region->valid.top) * static_cast<std::size_t>(region->bpl);
    return {reinterpret_cast<const Sample*>(region->data + offset), samples};
}

// Strip by strip, so that the picture is never in memory as a whole.
std::optional<GreyRaster> rasterOf(VipsImage* image, PixelLayout layout) {
    constexpr int kStripHeight = 16;
    const int width = vips_image_get_width(image);
    const int height = vips_image_get_height(image);
    auto average = AreaAverage::ofSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
    if (!average) return std::nullopt;
    const Region region(vips_region_new(image));
    std::vector<std::uint8_t> grey(static_cast<std::size_t>(width));
    const auto samples = grey.size() * samplesOf(layout);
    const bool isWide = vips_image_get_format(image) == VIPS_FORMAT_USHORT;
    for (int row = 0; row < height; ++row) {
        const VipsRect strip{0, row, width, std::min(kStripHeight, height - row)};
        if (row % kStripHeight == 0 && vips_region_prepare(region.get(), &strip) != 0) return std::nullopt;
        if (isWide)
            makeGrey(rowOf<std::uint16_t>(region.get(), row, samples), layout, grey);
        else
            makeGrey(rowOf<std::uint8_t>(region.get(), row, samples), layout, grey);
        average->addRow(grey);
    }
    return average->raster();
}

}  // namespace

std::optional<GreyRaster> rasterByVips(std::span<const std::byte> file, PictureFormat format) {
    const auto source = sourceOver(file);
    auto image = load(source.get(), format);
    if (!image || !hasDecodableSize(image.get())) return std::nullopt;
    image = plain(std::move(image));
    if (!image) return std::nullopt;
    const auto layout = layoutOf(image.get());
    auto raster = layout ? rasterOf(image.get(), *layout) : std::nullopt;
    vips_error_clear();
    return raster;
}

}  // namespace vellomar
