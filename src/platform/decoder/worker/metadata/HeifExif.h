#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace vellomar {

// The EXIF block of the first image in a HEIC or AVIF file, from its byte-order mark on; empty when there is none.
[[nodiscard]] std::vector<std::byte> exifBlockOfHeif(std::span<const std::byte> file);

}  // namespace vellomar
