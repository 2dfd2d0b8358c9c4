#pragma once

#include <cstdint>
#include <functional>

namespace vellomar {

// Two values of a list that are alike.
struct HammingPair {
    std::uint32_t first = 0;  // positions in the list; first < second
    std::uint32_t second = 0;
    int distance = 0;  // bits in which the two differ

    bool operator==(const HammingPair&) const = default;
};

using HammingPairSink = std::function<void(const HammingPair&)>;

}  // namespace vellomar
