#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// The raster of a RAW picture, developed from its own pixels; where they cannot be read or are damaged, of the preview
// that the camera put into the file. As the sensor lay, whichever way the camera was held. Nothing for a file that is
// not RAW.
[[nodiscard]] std::optional<GreyRaster> rasterOfRaw(std::span<const std::byte> file);

}  // namespace vellomar
