#include "platform/decoder/worker/pixels/GreyRow.h"

namespace vellomar {
namespace {

constexpr unsigned kOpaque = 255;

unsigned eightBits(std::uint8_t sample) {
    return sample;
}

unsigned eightBits(std::uint16_t sample) {
    return sample >> 8U;
}

// ITU-R BT.601 in parts of 65536, which the weights add up to.
unsigned luma(unsigned red, unsigned green, unsigned blue) {
    return (19595 * red + 38470 * green + 7471 * blue + 32768) >> 16U;
}

unsigned share(unsigned value, unsigned of255) {
    return (value * of255 + kOpaque / 2) / kOpaque;
}

template <typename Sample>
unsigned greyOf(const Sample* pixel, PixelLayout layout) {
    const auto at = [&](std::size_t i) { return eightBits(pixel[i]); };
    switch (layout) {
        case PixelLayout::grey: return at(0);
        case PixelLayout::greyAlpha: return share(at(0), at(1));
        case PixelLayout::rgb: return luma(at(0), at(1), at(2));
        case PixelLayout::rgba: return share(luma(at(0), at(1), at(2)), at(3));
        case PixelLayout::cmyk: break;
    }
    return share(luma(kOpaque - at(0), kOpaque - at(1), kOpaque - at(2)), kOpaque - at(3));
}

template <typename Sample>
void makeGreyOf(std::span<const Sample> samples, PixelLayout layout, std::span<std::uint8_t> grey) {
    const auto step = samplesOf(layout);
    const auto* pixel = samples.data();
    for (auto& value : grey) {
        value = static_cast<std::uint8_t>(greyOf(pixel, layout));
        pixel += step;
    }
}

}  // namespace

std::size_t samplesOf(PixelLayout layout) {
    switch (layout) {
        case PixelLayout::grey: return 1;
        case PixelLayout::greyAlpha: return 2;
        case PixelLayout::rgb: return 3;
        case PixelLayout::rgba:
        case PixelLayout::cmyk: break;
    }
    return 4;
}

void makeGrey(std::span<const std::uint8_t> samples, PixelLayout layout, std::span<std::uint8_t> grey) {
    makeGreyOf(samples, layout, grey);
}

void makeGrey(std::span<const std::uint16_t> samples, PixelLayout layout, std::span<std::uint8_t> grey) {
    makeGreyOf(samples, layout, grey);
}

void blacken(std::span<std::uint8_t> grey, std::span<const std::uint8_t> alpha) {
    for (std::size_t i = 0; i < grey.size(); ++i)
        grey[i] = static_cast<std::uint8_t>(share(grey[i], alpha[i]));
}

}  // namespace vellomar
