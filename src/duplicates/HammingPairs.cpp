#include "duplicates/HammingPairs.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <vector>

#include "duplicates/BandPlan.h"
#include "duplicates/BandSearch.h"
#include "duplicates/HammingKernels.h"

namespace vellomar {
namespace {

// Pairs that the search through bands may gather, unless there are more values than that: 50 MB of them.
constexpr std::size_t kLeastRoom = 4'000'000;

// Each value from `begin` on with all behind it.
void compareAll(std::span<const std::uint64_t> values, std::size_t begin, int threshold, const HammingPairSink& sink) {
    const auto kernel = fastestHammingKernel();
    std::vector<std::uint32_t> found(values.size());
    for (std::size_t i = begin; i < values.size(); ++i) {
        const auto later = values.subspan(i + 1);
        const auto count = kernel(values[i], later, threshold, found.data());
        for (const auto position : std::span(found).first(count))
            sink({.first = static_cast<std::uint32_t>(i),
                  .second = static_cast<std::uint32_t>(i + 1 + position),
                  .distance = std::popcount(values[i] ^ later[position])});
    }
}

}  // namespace

void forEachHammingPair(std::span<const std::uint64_t> values, int threshold, const HammingPairSink& sink) {
    if (threshold < 0) return;
    const int limit = std::min(threshold, kValueBits);
    std::size_t done = 0;
    if (const auto bands = cheapestBands(values, limit); !bands.empty())
        done = searchBands(values, limit, bands, std::max(kLeastRoom, values.size()), sink);
    compareAll(values, done, limit, sink);
}

}  // namespace vellomar
