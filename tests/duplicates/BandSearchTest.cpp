#include <algorithm>

#include <gtest/gtest.h>

#include "duplicates/BandSearch.h"
#include "duplicates/HashLists.h"

namespace vellomar {
namespace {

struct Outcome {
    std::vector<HammingPair> pairs;
    std::size_t end = 0;
};

Outcome search(std::span<const std::uint64_t> values, int threshold, int bandCount, std::size_t room) {
    Outcome outcome;
    outcome.end = searchBands(values, threshold, bandsFor(threshold, bandCount), room,
                              [&](const HammingPair& pair) { outcome.pairs.push_back(pair); });
    return outcome;
}

TEST(BandSearch, FindsEveryPairOnceAndInOrderWithAnyBands) {
    for (const auto& values : {testing::clusteredHashes(120), testing::crowdedHashes(60)}) {
        for (const int threshold : {0, 1, 2, 4, 7, 8, 9, 12}) {
            const auto expected = testing::plainPairs(values, threshold);
            for (int bandCount = (threshold + 3) / 3; bandCount <= threshold + 1; ++bandCount) {
                SCOPED_TRACE(std::to_string(bandCount) + " bands for " + std::to_string(threshold));
                const auto outcome = search(values, threshold, bandCount, 1'000'000);
                EXPECT_EQ(outcome.end, values.size());
                EXPECT_EQ(outcome.pairs, expected);
            }
        }
    }
}

TEST(BandSearch, FindsValuesThatOccurTwice) {
    const std::vector<std::uint64_t> values = {7, 1'000'000, 7, 7};
    EXPECT_EQ(search(values, 0, 1, 100).pairs, (std::vector<HammingPair>{{0, 2, 0}, {0, 3, 0}, {2, 3, 0}}));
}

TEST(BandSearch, WithLittleRoomTellsOfTheFirstPairsAndWhereItEnded) {
    const auto values = testing::clusteredHashes(200);
    const auto all = testing::plainPairs(values, 8);
    ASSERT_GT(all.size(), 3 * values.size());
    for (const std::size_t room : {values.size(), values.size() + 1, all.size() / 2, all.size()}) {
        SCOPED_TRACE(room);
        const auto outcome = search(values, 8, 5, room);
        EXPECT_GT(outcome.end, 0);
        EXPECT_LE(outcome.pairs.size(), 2 * room);
        std::vector<HammingPair> expected;
        std::ranges::copy_if(all, std::back_inserter(expected),
                             [&](const auto& pair) { return pair.first < outcome.end; });
        EXPECT_EQ(outcome.pairs, expected);
        EXPECT_EQ(outcome.end == values.size(), 2 * room > all.size());
    }
}

// Each value pairs with all others, and what one of them has just fits.
TEST(BandSearch, GetsOnHoweverManyPairsThereAre) {
    const auto values = testing::crowdedHashes(50);
    const auto outcome = search(values, 8, 9, values.size());
    EXPECT_GT(outcome.end, 0);
    EXPECT_LT(outcome.end, values.size());
    EXPECT_FALSE(outcome.pairs.empty());
}

}  // namespace
}  // namespace vellomar
