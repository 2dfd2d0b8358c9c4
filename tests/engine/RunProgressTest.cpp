#include <gtest/gtest.h>

#include "engine/RunProgress.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr RunProgress::Time kStart{1'000s};

TEST(RunProgress, CountsFromItsStart) {
    const RunProgress progress(kStart);
    EXPECT_DOUBLE_EQ(progress.elapsed(kStart), 0);
    EXPECT_DOUBLE_EQ(progress.elapsed(kStart + 1'500ms), 1.5);
}

TEST(RunProgress, TheFirstEstimateRestsOnTheWholeTimeSoFar) {
    RunProgress progress(kStart);
    EXPECT_DOUBLE_EQ(progress.etaAfter(200, 1'000, kStart + 10s), 40);
}

TEST(RunProgress, TheFirstEstimateIsNeverBelowZero) {
    RunProgress progress(kStart);
    EXPECT_DOUBLE_EQ(progress.etaAfter(200, 100, kStart + 10s), 0);
}

TEST(RunProgress, LaterEstimatesRestOnTheTimeSinceTheFirstSample) {
    RunProgress progress(kStart);
    progress.etaAfter(200, 1'000, kStart + 100s);
    EXPECT_DOUBLE_EQ(progress.etaAfter(400, 1'000, kStart + 110s), 30);  // 20 files a second
    EXPECT_DOUBLE_EQ(progress.etaAfter(600, 1'000, kStart + 140s), 40);  // 10 files a second
}

TEST(RunProgress, TheLastTenSamplesCount) {
    RunProgress progress(kStart);
    // The first sample is a minute before the others, which come every second.
    progress.etaAfter(200, 10'000, kStart);
    for (std::size_t i = 2; i <= 9; ++i)
        progress.etaAfter(200 * i, 10'000, kStart + 60s + std::chrono::seconds(i));
    const double tenth = progress.etaAfter(2'000, 10'000, kStart + 70s);
    EXPECT_DOUBLE_EQ(tenth, 8'000 / (1'800 / 70.0));
    const double eleventh = progress.etaAfter(2'200, 10'000, kStart + 71s);
    EXPECT_DOUBLE_EQ(eleventh, 7'800 / (1'800 / 9.0));
}

TEST(RunProgress, WithoutTimeOrFilesBetweenTheSamplesTheEstimateIsZero) {
    RunProgress atOnce(kStart);
    atOnce.etaAfter(200, 1'000, kStart + 1s);
    EXPECT_DOUBLE_EQ(atOnce.etaAfter(400, 1'000, kStart + 1s), 0);
    RunProgress standing(kStart);
    standing.etaAfter(200, 1'000, kStart + 1s);
    EXPECT_DOUBLE_EQ(standing.etaAfter(200, 1'000, kStart + 2s), 0);
}

}  // namespace
}  // namespace vellomar
