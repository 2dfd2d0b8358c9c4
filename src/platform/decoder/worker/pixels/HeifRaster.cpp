#include "platform/decoder/worker/pixels/HeifRaster.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/GreyRow.h"

namespace vellomar {
namespace {

using Image = std::unique_ptr<heif_image, decltype(&heif_image_release)>;
using Options = std::unique_ptr<heif_decoding_options, decltype(&heif_decoding_options_free)>;

Image decode(const heif_image_handle* handle, heif_colorspace space, heif_chroma chroma) {
    const Options options(heif_decoding_options_alloc(), heif_decoding_options_free);
    options->ignore_transformations = 1;
    heif_image* image = nullptr;
    if (!succeeded(heif_decode_image(handle, &image, space, chroma, options.get()))) image = nullptr;
    return {image, heif_image_release};
}

// One kind of sample of a decoded picture, brought to 8 bits row by row.
class Plane {
public:
    Plane(const heif_image* image, heif_channel channel)
        : start_(heif_image_get_plane_readonly(image, channel, &stride_)),
          width_(heif_image_get_width(image, channel)),
          height_(heif_image_get_height(image, channel)),
          bits_(heif_image_get_bits_per_pixel_range(image, channel)) {}

    [[nodiscard]] bool hasSizeOf(const Plane& other) const {
        return start_ != nullptr && width_ == other.width_ && height_ == other.height_;
    }
    [[nodiscard]] std::size_t width() const { return static_cast<std::size_t>(width_); }
    [[nodiscard]] std::size_t height() const { return static_cast<std::size_t>(height_); }

    // `samples` of them from the start of a row.
    void readRow(std::size_t row, std::span<std::uint8_t> samples) const {
        const auto* bytes = start_ + row * static_cast<std::size_t>(stride_);
        if (bits_ <= 8) {
            std::memcpy(samples.data(), bytes, samples.size());
            return;
        }
        const auto shift = static_cast<unsigned>(bits_ - 8);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            std::uint16_t sample = 0;
            std::memcpy(&sample, bytes + i * sizeof sample, sizeof sample);
            samples[i] = static_cast<std::uint8_t>(sample >> shift);
        }
    }

private:
    int stride_ = 0;  // set while start_ is
    const std::uint8_t* start_;
    int width_;
    int height_;
    int bits_;
};

// `readGrey` fills a row of grey from the row of that number.
template <typename ReadGrey>
std::optional<GreyRaster> rasterOf(const heif_image* image, const Plane& main, const ReadGrey& readGrey) {
    auto average = AreaAverage::ofSize(main.width(), main.height());
    if (!average) return std::nullopt;
    const Plane alpha(image, heif_channel_Alpha);
    const bool hasAlpha = alpha.hasSizeOf(main);
    std::vector<std::uint8_t> grey(main.width());
    std::vector<std::uint8_t> alphaRow(main.width());
    for (std::size_t row = 0; row < main.height(); ++row) {
        readGrey(row, std::span(grey));
        if (hasAlpha) {
            alpha.readRow(row, alphaRow);
            blacken(grey, alphaRow);
        }
        average->addRow(grey);
    }
    return average->raster();
}

// Luma is grey already.
std::optional<GreyRaster> rasterOfLuma(const heif_image* image) {
    const Plane luma(image, heif_channel_Y);
    return rasterOf(image, luma, [&](std::size_t row, std::span<std::uint8_t> grey) { luma.readRow(row, grey); });
}

// A picture that is stored as red, green and blue.
std::optional<GreyRaster> rasterOfColours(const heif_image* image) {
    const Plane pixels(image, heif_channel_interleaved);
    std::vector<std::uint8_t> samples(pixels.width() * samplesOf(PixelLayout::rgb));
    return rasterOf(image, pixels, [&](std::size_t row, std::span<std::uint8_t> grey) {
        pixels.readRow(row, samples);
        makeGrey(std::span<const std::uint8_t>(samples), PixelLayout::rgb, grey);
    });
}

bool hasDecodableSize(const heif_image_handle* handle) {
    const auto width = heif_image_handle_get_ispe_width(handle);
    const auto height = heif_image_handle_get_ispe_height(handle);
    return width > 0 && height > 0 &&
           isDecodableSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
}

}  // namespace

std::optional<GreyRaster> rasterOfHeif(std::span<const std::byte> file) {
    const HeifFile heif(file);
    const auto* handle = heif.firstImage();
    if (handle == nullptr || !hasDecodableSize(handle)) return std::nullopt;
    const auto stored = decode(handle, heif_colorspace_undefined, heif_chroma_undefined);
    if (!stored) return std::nullopt;
    if (heif_image_has_channel(stored.get(), heif_channel_Y) != 0) return rasterOfLuma(stored.get());
    const auto colours = decode(handle, heif_colorspace_RGB, heif_chroma_interleaved_RGB);
    return colours ? rasterOfColours(colours.get()) : std::nullopt;
}

}  // namespace vellomar
