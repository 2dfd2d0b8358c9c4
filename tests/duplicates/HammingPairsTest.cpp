#include <algorithm>
#include <iterator>
#include <limits>

#include <gmock/gmock.h>

#include "duplicates/BandPlan.h"
#include "duplicates/HammingPairs.h"
#include "duplicates/HashLists.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<HammingPair> pairsOf(std::span<const std::uint64_t> values, int threshold) {
    std::vector<HammingPair> pairs;
    forEachHammingPair(values, threshold, [&](const HammingPair& pair) { pairs.push_back(pair); });
    return pairs;
}

TEST(HammingPairs, ComeByFirstThenBySecondWithTheirDistance) {
    EXPECT_THAT(pairsOf(std::vector<std::uint64_t>{0b000, 0b111, 0b001, 0b011}, 2),
                ElementsAre(HammingPair{0, 2, 1}, HammingPair{0, 3, 2}, HammingPair{1, 2, 2}, HammingPair{1, 3, 1},
                            HammingPair{2, 3, 1}));
}

TEST(HammingPairs, AThresholdIncludesItself) {
    const std::vector<std::uint64_t> values = {0, 0b1111};
    EXPECT_THAT(pairsOf(values, 3), IsEmpty());
    EXPECT_THAT(pairsOf(values, 4), ElementsAre(HammingPair{0, 1, 4}));
}

TEST(HammingPairs, ThresholdsBeyondAllDistancesAreTakenAsTheyAre) {
    const std::vector<std::uint64_t> values = {0, ~std::uint64_t{0}, 0};
    for (const int threshold : {-1, -64, std::numeric_limits<int>::min()})
        EXPECT_THAT(pairsOf(values, threshold), IsEmpty()) << threshold;
    EXPECT_THAT(pairsOf(values, 63), ElementsAre(HammingPair{0, 2, 0}));
    for (const int threshold : {64, 65, std::numeric_limits<int>::max()})
        EXPECT_THAT(pairsOf(values, threshold),
                    ElementsAre(HammingPair{0, 1, 64}, HammingPair{0, 2, 0}, HammingPair{1, 2, 64}))
            << threshold;
}

TEST(HammingPairs, ThereAreNoneOfLessThanTwoValues) {
    EXPECT_THAT(pairsOf({}, 64), IsEmpty());
    EXPECT_THAT(pairsOf(std::vector<std::uint64_t>{5}, 64), IsEmpty());
}

TEST(HammingPairs, AreThoseOfThePlainLoopAtEveryThreshold) {
    for (const auto& values :
         {testing::randomHashes(150), testing::clusteredHashes(150), testing::crowdedHashes(150)}) {
        for (int threshold = -1; threshold <= 64; ++threshold) {
            SCOPED_TRACE(threshold);
            EXPECT_EQ(pairsOf(values, threshold), testing::plainPairs(values, threshold));
        }
    }
}

// So many that an index is used for small thresholds, and not for the larger ones.
TEST(HammingPairs, AreThoseOfThePlainLoopHoweverTheyAreFound) {
    constexpr std::size_t kCount = 2'100;
    for (const auto& values :
         {testing::randomHashes(kCount), testing::clusteredHashes(kCount), testing::crowdedHashes(kCount)}) {
        const auto all = testing::plainPairs(values, 20);
        for (const int threshold : {0, 1, 3, 4, 5, 8, 9, 12, 20}) {
            SCOPED_TRACE(threshold);
            std::vector<HammingPair> expected;
            std::ranges::copy_if(all, std::back_inserter(expected),
                                 [&](const auto& pair) { return pair.distance <= threshold; });
            EXPECT_TRUE(pairsOf(values, threshold) == expected);
        }
    }
    EXPECT_FALSE(cheapestBands(testing::clusteredHashes(kCount), 4).empty());
    EXPECT_TRUE(cheapestBands(testing::clusteredHashes(kCount), 20).empty());
}

}  // namespace
}  // namespace vellomar
