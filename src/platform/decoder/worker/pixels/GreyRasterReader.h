#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// The raster of the first picture in a file, whatever its format. What the decoder does when it is asked for one; see
// PixelDecoder::readGreyRaster(). May throw, and crash on hostile bytes: it belongs into the decoder's process.
[[nodiscard]] std::optional<GreyRaster> readGreyRaster(std::span<const std::byte> file);

}  // namespace vellomar
