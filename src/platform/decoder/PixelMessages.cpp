#include "platform/decoder/PixelMessages.h"

#include <algorithm>

namespace vellomar {

MessageBytes rasterAnswer(const GreyRaster& raster) {
    return {raster.pixels.begin(), raster.pixels.end()};
}

std::optional<GreyRaster> rasterFromAnswer(const MessageBytes& bytes) {
    GreyRaster raster;
    if (bytes.size() != raster.pixels.size()) return std::nullopt;
    std::ranges::copy(bytes, raster.pixels.begin());
    return raster;
}

const MessageBytes& pictureWrittenAnswer() {
    static const MessageBytes answer{'+'};
    return answer;
}

}  // namespace vellomar
