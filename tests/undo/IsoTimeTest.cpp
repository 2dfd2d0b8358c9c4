#include <gtest/gtest.h>

#include "support/Morning.h"
#include "undo/IsoTime.h"

namespace vellomar {
namespace {

TEST(IsoTime, IsWrittenInUtcAndWholeSeconds) {
    EXPECT_EQ(isoTimeText(kMorning), "2024-06-14T09:41:07Z");
    EXPECT_EQ(isoTimeText(kMorning + std::chrono::microseconds(999'999)), "2024-06-14T09:41:07Z");
    EXPECT_EQ(isoTimeText(instantFromUnixSeconds(std::int64_t{0})), "1970-01-01T00:00:00Z");
    EXPECT_EQ(isoTimeText(Instant(std::chrono::microseconds(-1))), "1969-12-31T23:59:59Z");
    EXPECT_EQ(isoTimeText(instantFromUnixSeconds(std::int64_t{253'402'300'799})), "9999-12-31T23:59:59Z");
}

TEST(IsoTime, ComesBack) {
    for (const std::int64_t seconds : {kMorningInUnixSeconds, std::int64_t{0}, std::int64_t{-1},
                                       std::int64_t{951'782'400}, std::int64_t{253'402'300'799}}) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(instantFromIsoTime(isoTimeText(instantFromUnixSeconds(seconds))), instantFromUnixSeconds(seconds));
    }
}

TEST(IsoTime, AnOffsetIsReadAsWell) {
    for (const char* text : {"2024-06-14T09:41:07Z", "2024-06-14T09:41:07+00:00", "2024-06-14T11:41:07+02:00",
                             "2024-06-14T02:41:07-07:00", "2024-06-14T15:11:07+05:30", "2024-06-13T23:41:07-10:00"})
        EXPECT_EQ(instantFromIsoTime(text), kMorning) << text;
}

TEST(IsoTime, AFractionIsRefused) {
    for (const char* text : {"2024-06-14T09:41:07.0Z", "2024-06-14T09:41:07.123Z", "2024-06-14T09:41:07,5Z",
                             "2024-06-14T09:41:07.123+02:00"})
        EXPECT_EQ(instantFromIsoTime(text), std::nullopt) << text;
}

TEST(IsoTime, OtherFormsAreRefused) {
    for (const char* text :
         {"", "2024-06-14", "2024-06-14T09:41Z", "2024-06-14T09:41:07", "2024-06-14 09:41:07Z", "2024-06-14T09:41:07z",
          "20240614T094107Z", "2024-06-14T09:41:07+2:00", "2024-06-14T09:41:07+02", "2024-06-14T09:41:07Z ",
          " 2024-06-14T09:41:07Z", "2024-06-14T09:41:07Z\n", "24-06-14T09:41:07Z", "2024-6-14T09:41:07Z", "1718358067"})
        EXPECT_EQ(instantFromIsoTime(text), std::nullopt) << text;
}

TEST(IsoTime, DatesThatDoNotExistAreRefused) {
    for (const char* text :
         {"2023-02-29T00:00:00Z", "2024-02-30T00:00:00Z", "2024-13-01T00:00:00Z", "2024-00-01T00:00:00Z",
          "2024-01-00T00:00:00Z", "2024-04-31T00:00:00Z", "2024-01-01T24:00:00Z", "2024-01-01T00:60:00Z",
          "2024-01-01T00:00:60Z", "2024-01-01T00:00:00+24:00", "2024-01-01T00:00:00+00:60"})
        EXPECT_EQ(instantFromIsoTime(text), std::nullopt) << text;
    EXPECT_TRUE(instantFromIsoTime("2024-02-29T00:00:00Z").has_value());
}

}  // namespace
}  // namespace vellomar
