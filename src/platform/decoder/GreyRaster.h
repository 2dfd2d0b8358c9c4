#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vellomar {

// A picture reduced to a few grey pixels, row by row from the top left; 0 is black. What the whole picture shows fills
// the raster, whatever its proportions.
struct GreyRaster {
    static constexpr std::size_t kWidth = 9;
    static constexpr std::size_t kHeight = 8;

    std::array<std::uint8_t, kWidth * kHeight> pixels{};

    [[nodiscard]] std::uint8_t at(std::size_t row, std::size_t column) const { return pixels[row * kWidth + column]; }

    bool operator==(const GreyRaster&) const = default;
};

}  // namespace vellomar
