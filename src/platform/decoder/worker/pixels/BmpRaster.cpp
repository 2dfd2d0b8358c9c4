#include "platform/decoder/worker/pixels/BmpRaster.h"

#include <cstdint>
#include <vector>

#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/BmpPicture.h"
#include "platform/decoder/worker/pixels/GreyRow.h"

namespace vellomar {

std::optional<GreyRaster> rasterOfBmp(std::span<const std::byte> file) {
    const auto picture = decodeBmp(file);
    if (!picture) return std::nullopt;
    const auto width = static_cast<std::size_t>(picture->width);
    const auto height = static_cast<std::size_t>(picture->height);
    auto average = AreaAverage::ofSize(width, height);
    if (!average) return std::nullopt;
    const auto rowLength = width * samplesOf(PixelLayout::rgb);
    std::vector<std::uint8_t> grey(width);
    for (std::size_t row = 0; row < height; ++row) {
        makeGrey(std::span(picture->samples).subspan(row * rowLength, rowLength), PixelLayout::rgb, grey);
        average->addRow(grey);
    }
    return average->raster();
}

}  // namespace vellomar
