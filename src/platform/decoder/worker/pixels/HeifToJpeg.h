#pragma once

#include <cstddef>
#include <span>

namespace vellomar {

// Writes the first picture of a HEIC or AVIF file as a JPEG file to the open file `output`; see
// PixelDecoder::convertToJpeg(). False if it cannot be decoded, or not all of it be written. May crash on hostile
// bytes: it belongs into the decoder's process.
[[nodiscard]] bool writeJpegOfHeif(std::span<const std::byte> file, int output);

}  // namespace vellomar
