#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/worker/pixels/RgbPicture.h"

namespace vellomar {

// The first picture in a file, whatever its format, upright and small. What the decoder does when it is asked for a
// thumbnail; see PixelDecoder::makeThumbnail(). May throw, and crash on hostile bytes: it belongs into the decoder's
// process.
[[nodiscard]] std::optional<RgbPicture> readThumbnail(std::span<const std::byte> file, int size);

}  // namespace vellomar
