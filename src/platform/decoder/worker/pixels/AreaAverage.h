#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// No picture with more pixels than this is looked at, whatever the file says of its size.
inline constexpr std::uint64_t kMostPixels = 500'000'000;

// Whether the size is one that a picture can have, and that we decode.
[[nodiscard]] bool isDecodableSize(std::uint64_t width, std::uint64_t height);

// Reduces a picture to a raster by area averaging: the picture is laid over the raster without regard to proportions,
// and each pixel of the raster becomes the mean of what lies on it, a pixel that lies on two of them counting to each
// by the share of its area. This holds for pictures smaller than the raster too, whose pixels each cover several of it.
//
// All is computed in whole numbers and rounded once at the end, half upwards, so that the result is the same on every
// machine. Takes the picture row by row and keeps none of it.
class AreaAverage {
public:
    // Nothing if the size is none that is decoded. In pixels.
    [[nodiscard]] static std::optional<AreaAverage> ofSize(std::uint64_t width, std::uint64_t height);

    // The next row from the top, `width` pixels. Rows beyond the last one are passed over.
    void addRow(std::span<const std::uint8_t> row);

    // Rows that were never added count as black.
    [[nodiscard]] GreyRaster raster() const;

private:
    // Where a column of the raster lies in a row of the picture: some whole pixels and a share of one at each end. The
    // shares are ninths of a pixel.
    struct Column {
        std::size_t first = 0;
        std::size_t last = 0;
        std::uint64_t shareOfFirst = 0;
        std::uint64_t shareOfLast = 0;  // 0 if it is the first as well
    };

    AreaAverage(std::uint64_t width, std::uint64_t height);
    [[nodiscard]] static std::uint64_t sumUnder(const Column& column, std::span<const std::uint8_t> row);

    std::uint64_t width_;
    std::uint64_t height_;
    std::uint64_t rowsAdded_ = 0;
    std::array<Column, GreyRaster::kWidth> columns_{};
    std::array<std::uint64_t, GreyRaster::kWidth * GreyRaster::kHeight> sums_{};
};

}  // namespace vellomar
