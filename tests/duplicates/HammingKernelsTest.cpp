#include <algorithm>
#include <bit>

#include <gmock/gmock.h>

#include "duplicates/HammingKernels.h"
#include "duplicates/HashLists.h"

namespace vellomar {
namespace {

std::vector<std::uint32_t> foundBy(HammingKernel kernel, std::uint64_t value, std::span<const std::uint64_t> values,
                                   int threshold) {
    std::vector<std::uint32_t> positions(values.size());
    positions.resize(kernel(value, values, threshold, positions.data()));
    return positions;
}

std::vector<std::uint32_t> foundPlainly(std::uint64_t value, std::span<const std::uint64_t> values, int threshold) {
    std::vector<std::uint32_t> positions;
    for (std::uint32_t i = 0; i < values.size(); ++i)
        if (std::popcount(value ^ values[i]) <= threshold) positions.push_back(i);
    return positions;
}

TEST(HammingKernels, OneRunsOnEveryProcessorAndTheFastestIsTheLast) {
    const auto kernels = hammingKernels();
    ASSERT_FALSE(kernels.empty());
    EXPECT_EQ(kernels.front().name, "anywhere");
    EXPECT_EQ(fastestHammingKernel(), kernels.back().kernel);
}

TEST(HammingKernels, EachFindsWhatThePlainLoopFinds) {
    const auto values = testing::clusteredHashes(203);
    for (const auto& [name, kernel] : hammingKernels()) {
        for (int threshold = 0; threshold <= 64; ++threshold) {
            SCOPED_TRACE(std::string(name) + ", threshold " + std::to_string(threshold));
            for (const auto value : {values[0], values[77], ~values[5], std::uint64_t{0}, ~std::uint64_t{0}})
                EXPECT_EQ(foundBy(kernel, value, values, threshold), foundPlainly(value, values, threshold));
        }
    }
}

TEST(HammingKernels, EachTakesRowsOfAnyLengthAtAnyPlace) {
    const auto values = testing::crowdedHashes(40);
    for (const auto& [name, kernel] : hammingKernels()) {
        for (std::size_t first = 0; first < 5; ++first) {
            for (std::size_t length = 0; length + first <= values.size(); ++length) {
                SCOPED_TRACE(std::string(name) + ", " + std::to_string(length) + " from " + std::to_string(first));
                const auto row = std::span(values).subspan(first, length);
                EXPECT_EQ(foundBy(kernel, values[7], row, 3), foundPlainly(values[7], row, 3));
            }
        }
    }
}

// Every bit counts, wherever it stands.
TEST(HammingKernels, EachCountsEveryBit) {
    for (const auto& [name, kernel] : hammingKernels()) {
        for (int bit = 0; bit < 64; ++bit) {
            SCOPED_TRACE(std::string(name) + ", bit " + std::to_string(bit));
            const auto one = std::uint64_t{1} << bit;
            const std::vector<std::uint64_t> values = {0, one, ~one, ~std::uint64_t{0}, one};
            EXPECT_THAT(foundBy(kernel, 0, values, 0), ::testing::ElementsAre(0));
            EXPECT_THAT(foundBy(kernel, 0, values, 1), ::testing::ElementsAre(0, 1, 4));
            EXPECT_THAT(foundBy(kernel, 0, values, 62), ::testing::ElementsAre(0, 1, 4));
            EXPECT_THAT(foundBy(kernel, 0, values, 63), ::testing::ElementsAre(0, 1, 2, 4));
            EXPECT_THAT(foundBy(kernel, 0, values, 64), ::testing::ElementsAre(0, 1, 2, 3, 4));
        }
    }
}

}  // namespace
}  // namespace vellomar
