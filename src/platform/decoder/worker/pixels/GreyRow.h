// Pixels as decoders hand them out, turned into grey ones of 8 bits. All in whole numbers: the same on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellomar {

// What the samples of a pixel mean, in their order; transparency stands behind the others, all of it opaque.
enum class PixelLayout { grey, greyAlpha, rgb, rgba, cmyk };

[[nodiscard]] std::size_t samplesOf(PixelLayout layout);

// Turns a row into grey, over black where it is transparent. `samples` holds the pixels one behind the other, without
// padding, and as many of them as `grey` has room for. Colours weigh as in the luma of a JPEG file.
void makeGrey(std::span<const std::uint8_t> samples, PixelLayout layout, std::span<std::uint8_t> grey);

// As above, of 16 bits a sample, of which the upper 8 count.
void makeGrey(std::span<const std::uint16_t> samples, PixelLayout layout, std::span<std::uint8_t> grey);

// Puts a row of grey over black. Each has one sample a pixel.
void blacken(std::span<std::uint8_t> grey, std::span<const std::uint8_t> alpha);

}  // namespace vellomar
