#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/worker/pixels/RgbPicture.h"

namespace vellomar {

// The picture in a RAW file, upright and small; see thumbnailOfImage(). Made from a preview that the camera put into
// the file: the smallest that is large enough, else the largest. Developed only where there is none. Nothing for a
// file that is not RAW.
[[nodiscard]] std::optional<RgbPicture> thumbnailOfRaw(std::span<const std::byte> file, int size);

// As above, of a preview alone, in a file of any kind: a RAW file that breaks off, or a kind that is not known yet.
[[nodiscard]] std::optional<RgbPicture> thumbnailOfPreviewIn(std::span<const std::byte> file, int size);

}  // namespace vellomar
