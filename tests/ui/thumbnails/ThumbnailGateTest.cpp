#include <vector>

#include <gmock/gmock.h>

#include "ui/thumbnails/ThumbnailGate.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

TEST(ThumbnailGate, LetsThreeInAndTheOthersInTheOrderInWhichTheyCame) {
    ThumbnailGate gate;
    std::vector<int> in;
    for (int i = 0; i < 10; ++i)
        gate.acquire([&in, i] { in.push_back(i); });
    EXPECT_THAT(in, ElementsAre(0, 1, 2));
    gate.release();
    EXPECT_THAT(in, ElementsAre(0, 1, 2, 3));
    for (int i = 0; i < 6; ++i)
        gate.release();
    EXPECT_THAT(in, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST(ThumbnailGate, KeepsASlotThatNobodyWaitsFor) {
    ThumbnailGate gate;
    int in = 0;
    const auto enter = [&] { gate.acquire([&in] { ++in; }); };
    for (int i = 0; i < 3; ++i)
        enter();
    for (int i = 0; i < 3; ++i)
        gate.release();
    for (int i = 0; i < 4; ++i)
        enter();
    EXPECT_EQ(in, 6) << "three again, and no more";
}

}  // namespace
}  // namespace vellomar
