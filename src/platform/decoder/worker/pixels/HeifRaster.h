#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// The raster of the first picture in a HEIC or AVIF file, as it is stored: not turned, mirrored or cropped.
[[nodiscard]] std::optional<GreyRaster> rasterOfHeif(std::span<const std::byte> file);

}  // namespace vellomar
