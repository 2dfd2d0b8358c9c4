#pragma once

#include <cstddef>
#include <span>

namespace vellomar {

// How pictures are stored. RAW formats are told by their own library: most look like TIFF files.
enum class PictureFormat { jpeg, png, tiff, webp, gif, bmp, heif, other };

// By the first bytes of a file, and by nothing else: the names of files lie.
[[nodiscard]] PictureFormat formatOfPicture(std::span<const std::byte> file);

}  // namespace vellomar
