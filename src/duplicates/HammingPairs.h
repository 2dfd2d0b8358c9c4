#pragma once

#include <cstdint>
#include <span>

#include "duplicates/HammingPair.h"

namespace vellomar {

// Tells `sink` of every two of `values` that differ in at most `threshold` bits, in the order of a plain double loop:
// by first, then by second. A negative threshold is met by no pair, one of 64 or more by all. Values that occur twice
// count as two.
//
// For small thresholds a search through an index stands in for the comparison of all with all, unless the values are
// so much alike that it would not pay. The memory taken does not grow beyond a limit with the number of pairs. Any
// thread.
void forEachHammingPair(std::span<const std::uint64_t> values, int threshold, const HammingPairSink& sink);

}  // namespace vellomar
