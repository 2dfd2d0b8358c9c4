#pragma once

#include <cstdint>
#include <vector>

namespace vellomar {

// A decoded picture: red, green and blue in 8 bits each, row by row from the top left, without padding.
struct RgbPicture {
    int width = 0;  // in pixels, as is the height
    int height = 0;
    std::vector<std::uint8_t> samples;
};

}  // namespace vellomar
