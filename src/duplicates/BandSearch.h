// The search for pairs through an index of bands. For the files of this folder and their tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "duplicates/BandPlan.h"
#include "duplicates/HammingPair.h"

namespace vellomar {

// As forEachHammingPair(), by way of `bands`, which must be some for this threshold or a larger one; but it may end
// early: tells of all pairs whose first value stands before the position that it returns. That is the end unless there
// are more than twice as many pairs as `room`, which must not be less than there are values.
[[nodiscard]] std::size_t searchBands(std::span<const std::uint64_t> values, int threshold,
                                      const std::vector<Band>& bands, std::size_t room, const HammingPairSink& sink);

}  // namespace vellomar
