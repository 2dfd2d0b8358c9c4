#include <algorithm>
#include <bit>
#include <random>

#include <gmock/gmock.h>

#include "duplicates/BandPlan.h"
#include "duplicates/HashLists.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

TEST(BandPlan, TheBandsLieBesideEachOtherAndInsideTheValue) {
    for (int threshold = 0; threshold <= 64; ++threshold) {
        for (int count = 1; count <= std::min(threshold + 1, 64); ++count) {
            SCOPED_TRACE(std::to_string(count) + " bands for " + std::to_string(threshold));
            const auto bands = bandsFor(threshold, count);
            ASSERT_THAT(bands, SizeIs(count));
            int radii = 0;
            int end = 0;
            for (const auto& band : bands) {
                EXPECT_GE(band.shift, end);
                EXPECT_GE(band.width, 1);
                EXPECT_LE(band.width, 16);
                EXPECT_GE(band.radius, 0);
                end = band.shift + band.width;
                radii += band.radius + 1;
            }
            EXPECT_LE(end, 64);
            EXPECT_GT(radii, threshold);
        }
    }
}

bool someBandIsShared(const std::vector<Band>& bands, std::uint64_t difference) {
    return std::ranges::any_of(bands,
                               [&](const auto& band) { return std::popcount(band.of(difference)) <= band.radius; });
}

TEST(BandPlan, ValuesThatAreAlikeShareABand) {
    std::mt19937_64 random(1);
    for (int threshold = 0; threshold <= 64; ++threshold) {
        for (int count = 1; count <= std::min(threshold + 1, 64); ++count) {
            SCOPED_TRACE(std::to_string(count) + " bands for " + std::to_string(threshold));
            const auto bands = bandsFor(threshold, count);
            for (int round = 0; round < 20; ++round) {
                std::uint64_t difference = 0;
                while (std::popcount(difference) < threshold)
                    difference |= std::uint64_t{1} << (random() % 64);
                EXPECT_TRUE(someBandIsShared(bands, difference)) << difference;
            }
        }
    }
}

TEST(BandPlan, ABandIsCutOutOfTheValue) {
    EXPECT_EQ((Band{.shift = 4, .width = 8, .radius = 0}.of(0xABCDE)), 0xCD);
    EXPECT_EQ((Band{.shift = 48, .width = 16, .radius = 0}.of(0xFEDC'0000'0000'0000)), 0xFEDC);
}

TEST(BandPlan, TellsTheNumbersWithFewBits) {
    EXPECT_THAT(numbersWithFewBits(4, 0), ElementsAre(0));
    EXPECT_THAT(numbersWithFewBits(4, 1), ElementsAre(0, 1, 2, 4, 8));
    EXPECT_THAT(numbersWithFewBits(3, 2), ElementsAre(0, 1, 2, 3, 4, 5, 6));
    EXPECT_THAT(numbersWithFewBits(16, 2), SizeIs(1 + 16 + 120));
    EXPECT_THAT(numbersWithFewBits(2, 5), ElementsAre(0, 1, 2, 3));
}

TEST(BandPlan, IsMadeForManyValuesAndSmallThresholds) {
    const auto values = testing::randomHashes(20'000);
    for (const int threshold : {0, 1, 4, 8, 12})
        EXPECT_THAT(cheapestBands(values, threshold), Not(IsEmpty())) << threshold;
    for (const int threshold : {24, 40, 64})
        EXPECT_THAT(cheapestBands(values, threshold), IsEmpty()) << threshold;
    EXPECT_THAT(cheapestBands(std::span(values).first(1'000), 4), IsEmpty());
    EXPECT_THAT(cheapestBands({}, 4), IsEmpty());
}

TEST(BandPlan, IsNotMadeForValuesThatShareTheirBands) {
    const auto values = testing::crowdedHashes(20'000);
    for (const int threshold : {4, 8})
        EXPECT_THAT(cheapestBands(values, threshold), IsEmpty()) << threshold;
}

}  // namespace
}  // namespace vellomar
