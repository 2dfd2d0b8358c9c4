#pragma once

#include <cstddef>
#include <span>

#include "platform/decoder/MediaMetadata.h"

namespace vellomar {

// The properties of the image whose whole content is `file`. What the bytes are is told by the bytes alone; those that
// are no image, or a broken one, have no properties, or the ones in front of the break. Nothing is decoded to pixels.
// Does not throw, but what it calls may crash on hostile bytes: it belongs into the decoder's process.
[[nodiscard]] ImageProperties readImageProperties(std::span<const std::byte> file);

}  // namespace vellomar
