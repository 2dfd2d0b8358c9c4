#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"
#include "platform/decoder/worker/pixels/PictureFormat.h"

namespace vellomar {

// The raster of the first picture in a PNG, TIFF, WebP or GIF file, or of a JPEG picture in the colours of print.
[[nodiscard]] std::optional<GreyRaster> rasterByVips(std::span<const std::byte> file, PictureFormat format);

}  // namespace vellomar
