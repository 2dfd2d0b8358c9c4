#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/worker/pixels/RgbPicture.h"

namespace vellomar {

// The first picture in a HEIC or AVIF file, upright and small; see thumbnailOfImage(). Made from the small picture that
// the file has beside it, where that is large enough.
[[nodiscard]] std::optional<RgbPicture> thumbnailOfHeif(std::span<const std::byte> file, int size);

}  // namespace vellomar
