#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/CameraProperties.h"

namespace vellomar {

// What the camera recorded of the image whose whole content is `file`. What the bytes are is told by the bytes alone.
// Nothing for those that are no image, or one that is so broken that nothing of it can be read. Does not throw, but
// what it calls may crash on hostile bytes: it belongs into the decoder's process.
[[nodiscard]] std::optional<CameraProperties> readCameraProperties(std::span<const std::byte> file);

}  // namespace vellomar
