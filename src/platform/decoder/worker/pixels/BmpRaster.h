#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// The raster of a BMP picture.
[[nodiscard]] std::optional<GreyRaster> rasterOfBmp(std::span<const std::byte> file);

}  // namespace vellomar
