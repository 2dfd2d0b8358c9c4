#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace vellomar {

// Whether the bytes begin as those of a HEIC or AVIF image do.
[[nodiscard]] bool isHeif(std::span<const std::byte> file);

// The EXIF block of the first image in a HEIC or AVIF file, from its byte-order mark on; empty when there is none.
[[nodiscard]] std::vector<std::byte> exifBlockOfHeif(std::span<const std::byte> file);

}  // namespace vellomar
