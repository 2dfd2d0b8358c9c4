#include <gtest/gtest.h>

#include "platform/Instant.h"

namespace vellomar {
namespace {

TEST(Instant, WholeSecondsFallTowardsThePast) {
    struct Case {
        double seconds;
        std::int64_t whole;
    };
    constexpr Case kCases[] = {{0, 0}, {0.999999, 0}, {1, 1}, {-0.000001, -1}, {-1, -1}, {-1.5, -2}};
    for (const auto& [seconds, whole] : kCases) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(wholeUnixSeconds(instantFromUnixSeconds(seconds)), whole);
    }
}

TEST(Instant, KeepsMicroseconds) {
    EXPECT_EQ(instantFromUnixSeconds(1.000001), Instant(std::chrono::microseconds(1'000'001)));
    EXPECT_EQ(instantFromUnixSeconds(-1.25), Instant(std::chrono::microseconds(-1'250'000)));
    EXPECT_DOUBLE_EQ(unixSeconds(instantFromUnixSeconds(1'705'320'000.5)), 1'705'320'000.5);
    EXPECT_DOUBLE_EQ(unixSeconds(instantFromUnixSeconds(-0.25)), -0.25);
}

TEST(Instant, HasRoomForEveryYearThatAFileCanClaim) {
    constexpr std::int64_t kYear1 = -62'135'596'800;
    constexpr std::int64_t kYear9999 = 253'402'300'799;
    EXPECT_EQ(wholeUnixSeconds(instantFromUnixSeconds(kYear1)), kYear1);
    EXPECT_EQ(wholeUnixSeconds(instantFromUnixSeconds(kYear9999)), kYear9999);
}

}  // namespace
}  // namespace vellomar
