// A number as most picture and video formats write it.
#pragma once

#include <cstdint>
#include <string>

namespace vellomar::testing {

// The four bytes of `number`, the highest first.
inline std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 32; shift > 0;)
        bytes += static_cast<char>(number >> (shift -= 8));
    return bytes;
}

}  // namespace vellomar::testing
