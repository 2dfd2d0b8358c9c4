#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/worker/pixels/RgbPicture.h"

namespace vellomar {

// The picture in a BMP file, at its full size; its transparency, which few programs mean, is left out.
[[nodiscard]] std::optional<RgbPicture> decodeBmp(std::span<const std::byte> file);

}  // namespace vellomar
