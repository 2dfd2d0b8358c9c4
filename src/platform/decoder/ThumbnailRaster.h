#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellomar {

// A small, upright picture in sRGB.
struct ThumbnailRaster {
    // The largest size that can be asked for.
    static constexpr int kMostSize = 512;

    int width = 0;  // in pixels, as is the height
    int height = 0;
    std::vector<std::uint32_t> pixels;  // 0xffRRGGBB, row by row from the top left, without padding

    [[nodiscard]] std::uint32_t at(int row, int column) const {
        return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(column)];
    }

    bool operator==(const ThumbnailRaster&) const = default;
};

}  // namespace vellomar
