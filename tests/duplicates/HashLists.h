// Lists of hashes, and the plain way to compare them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "duplicates/HammingPair.h"

namespace vellomar::testing {

// Distinct, each bit as likely to be set as not.
[[nodiscard]] std::vector<std::uint64_t> randomHashes(std::size_t count);

// Distinct, in families of about ten that differ in few bits.
[[nodiscard]] std::vector<std::uint64_t> clusteredHashes(std::size_t count);

// Distinct and all alike: they differ in their lowest bits alone.
[[nodiscard]] std::vector<std::uint64_t> crowdedHashes(std::size_t count);

// By the double loop.
[[nodiscard]] std::vector<HammingPair> plainPairs(std::span<const std::uint64_t> values, int threshold);

}  // namespace vellomar::testing
