#include "duplicates/PerceptualHash.h"

namespace vellomar {

std::uint64_t differenceHash(const GreyRaster& raster) {
    constexpr std::size_t kBitsOfRow = GreyRaster::kWidth - 1;
    std::uint64_t hash = 0;
    for (std::size_t row = 0; row < GreyRaster::kHeight; ++row)
        for (std::size_t column = 0; column < kBitsOfRow; ++column)
            if (raster.at(row, column) > raster.at(row, column + 1))
                hash |= std::uint64_t{1} << (row * kBitsOfRow + column);
    return hash;
}

std::optional<std::uint64_t> perceptualHash(FileSystem& fileSystem, PixelDecoder& decoder, const std::string& path) {
    const auto file = fileSystem.openForReading(path, true);
    if (!file) return std::nullopt;
    const auto raster = decoder.readGreyRaster(**file);
    if (!raster) return std::nullopt;
    return differenceHash(*raster);
}

}  // namespace vellomar
