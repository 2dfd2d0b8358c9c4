#include "platform/decoder/worker/pixels/AreaAverage.h"

#include <algorithm>
#include <numeric>

namespace vellomar {
namespace {

constexpr std::uint64_t kColumns = GreyRaster::kWidth;
constexpr std::uint64_t kRows = GreyRaster::kHeight;

std::uint64_t overlap(std::uint64_t start, std::uint64_t end, std::uint64_t otherStart, std::uint64_t otherEnd) {
    const auto from = std::max(start, otherStart);
    const auto to = std::min(end, otherEnd);
    return to > from ? to - from : 0;
}

}  // namespace

bool isDecodableSize(std::uint64_t width, std::uint64_t height) {
    return width > 0 && height > 0 && width <= kMostPixels / height;
}

std::optional<AreaAverage> AreaAverage::ofSize(std::uint64_t width, std::uint64_t height) {
    if (!isDecodableSize(width, height)) return std::nullopt;
    return AreaAverage(width, height);
}

// Measured in ninths of a pixel, a column of the raster is as wide as the picture has pixels.
AreaAverage::AreaAverage(std::uint64_t width, std::uint64_t height) : width_(width), height_(height) {
    for (std::uint64_t i = 0; i < kColumns; ++i) {
        const auto start = i * width;
        const auto end = start + width;
        auto& column = columns_[i];
        column.first = start / kColumns;
        column.last = (end - 1) / kColumns;
        column.shareOfFirst = std::min(end, (column.first + 1) * kColumns) - start;
        if (column.last > column.first) column.shareOfLast = end - column.last * kColumns;
    }
}

// In height, likewise, all is measured in eighths.
void AreaAverage::addRow(std::span<const std::uint8_t> row) {
    if (rowsAdded_ == height_) return;
    const auto start = rowsAdded_ * kRows;
    const auto end = start + kRows;
    ++rowsAdded_;
    std::array<std::uint64_t, kColumns> sumsOfRow{};
    std::ranges::transform(columns_, sumsOfRow.begin(), [&](const Column& column) { return sumUnder(column, row); });
    for (auto i = start / height_; i <= (end - 1) / height_; ++i) {
        const auto share = overlap(start, end, i * height_, (i + 1) * height_);
        for (std::uint64_t j = 0; j < kColumns; ++j)
            sums_[i * kColumns + j] += share * sumsOfRow[j];
    }
}

std::uint64_t AreaAverage::sumUnder(const Column& column, std::span<const std::uint8_t> row) {
    auto sum = column.shareOfFirst * row[column.first];
    if (column.last == column.first) return sum;
    const auto whole = row.subspan(column.first + 1, column.last - column.first - 1);
    sum += kColumns * std::accumulate(whole.begin(), whole.end(), std::uint32_t{0});
    return sum + column.shareOfLast * row[column.last];
}

GreyRaster AreaAverage::raster() const {
    GreyRaster raster;
    const auto area = width_ * height_;
    std::ranges::transform(sums_, raster.pixels.begin(),
                           [&](std::uint64_t sum) { return static_cast<std::uint8_t>((sum + area / 2) / area); });
    return raster;
}

}  // namespace vellomar
