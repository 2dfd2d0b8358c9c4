#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// The raster of a JPEG picture. Only its luma is decoded: the colours, which would not count, take a quarter of the
// time. Of a picture that breaks off, what is there counts. Nothing for one in the colours of print (CMYK).
[[nodiscard]] std::optional<GreyRaster> rasterOfJpeg(std::span<const std::byte> file);

}  // namespace vellomar
