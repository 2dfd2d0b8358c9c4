// The innermost loop of the search for near-duplicates, once for each kind of processor. For the files of this folder
// and their tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vellomar {

// Writes to `positions` where in `values` those stand that differ from `value` in at most `threshold` bits, ascending,
// and returns how many there are. `positions` has room for as many as there are values; `threshold` is from 0 to 64.
using HammingKernel = std::size_t (*)(std::uint64_t value, std::span<const std::uint64_t> values, int threshold,
                                      std::uint32_t* positions);

struct NamedHammingKernel {
    std::string_view name;
    HammingKernel kernel = nullptr;
};

// Those that run on this machine's processor, the fastest last. Any thread.
[[nodiscard]] std::vector<NamedHammingKernel> hammingKernels();

// The last of them, chosen once.
[[nodiscard]] HammingKernel fastestHammingKernel();

}  // namespace vellomar
