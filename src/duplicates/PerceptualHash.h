#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/decoder/PixelDecoder.h"

namespace vellomar {

// The difference hash (dHash) of a picture: one bit for each pixel of the raster but the last of a row, set where it is
// brighter than its right neighbour. Bits are counted row by row from the least significant one. A picture whose
// brightness falls nowhere to the right hashes to 0, which is a value like any other. Pictures that look alike differ
// in few bits.
[[nodiscard]] std::uint64_t differenceHash(const GreyRaster& raster);

// That of the picture in the file at `path`, whatever its orientation says. Nothing if it cannot be decoded. Reads the
// whole file and blocks until the decoder has answered; a thread uses a decoder alone.
[[nodiscard]] std::optional<std::uint64_t> perceptualHash(FileSystem& fileSystem, PixelDecoder& decoder,
                                                          const std::string& path);

}  // namespace vellomar
