#include <limits>

#include <gtest/gtest.h>

#include "engine/TextFormats.h"

namespace vellomar {
namespace {

TEST(TextFormats, BytesInTheirUnit) {
    struct Case {
        std::int64_t bytes;
        std::string_view text;
    };
    constexpr Case kCases[] = {
        {0, "0 B"},
        {1'023, "1023 B"},
        {1'024, "1.0 KB"},
        {1'536, "1.5 KB"},
        {1'048'575, "1024.0 KB"},  // the unit is chosen before the rounding
        {1'048'576, "1.0 MB"},
        {1'073'741'823, "1024.0 MB"},
        {1'073'741'824, "1.00 GB"},
        {1'099'511'627'776, "1024.00 GB"},
        {std::numeric_limits<std::int64_t>::max(), "8589934592.00 GB"},
        {-5, "-5 B"},
        {-5'000, "-5000 B"},
    };
    for (const auto& [bytes, text] : kCases)
        EXPECT_EQ(formatBytes(bytes), text) << bytes;
}

TEST(TextFormats, DurationsAndTimesLeft) {
    struct Case {
        double seconds;
        std::string_view duration;
        std::string_view eta;
    };
    constexpr Case kCases[] = {
        {0, "0s", "0s"},
        {0.999, "0s", "0s"},
        {59.999, "59s", "59s"},
        {60, "1m 00s", "1m 00s"},
        {90, "1m 30s", "1m 30s"},
        {3'599.9, "59m 59s", "59m 59s"},
        {3'600, "1h 00m 00s", "1h 00m"},
        {3'661, "1h 01m 01s", "1h 01m"},
        {7'322.9, "2h 02m 02s", "2h 02m"},
        {360'000, "100h 00m 00s", "100h 00m"},
        {-0.5, "0s", "0s"},
        {-5, "-5s", "-5s"},
    };
    for (const auto& [seconds, duration, eta] : kCases) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(formatDuration(seconds), duration);
        EXPECT_EQ(formatEta(seconds), eta);
    }
}

TEST(TextFormatsDeathTest, ADurationThatIsNoNumberEndsTheProgram) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(static_cast<void>(formatDuration(std::numeric_limits<double>::infinity())), "");
    EXPECT_DEATH(static_cast<void>(formatDuration(std::numeric_limits<double>::quiet_NaN())), "");
    EXPECT_DEATH(static_cast<void>(formatEta(-std::numeric_limits<double>::infinity())), "");
}

}  // namespace
}  // namespace vellomar
