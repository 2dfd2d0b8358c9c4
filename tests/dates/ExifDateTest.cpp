#include <gtest/gtest.h>

#include "dates/ExifDate.h"
#include "dates/LocalInstant.h"
#include "support/ScopedTimeZone.h"

namespace vellomar::ExifUtils {
namespace {

using ::vellomar::testing::local;
using ::vellomar::testing::ScopedTimeZone;

constexpr const char* kZones[] = {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Kolkata", "Pacific/Apia"};

TEST(ExifDate, ReadsTheLocalWallClock) {
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (std::string_view text :
             {"2023:08:14 14:30:21", "2023-08-14 14:30:21", "2023:08-14 14:30:21", "2023-08:14 14:30:21"}) {
            SCOPED_TRACE(std::string(text) + " " + zone);
            EXPECT_EQ(parseExifDate(text), local(2023, 8, 14, 14, 30, 21));
        }
    }
}

TEST(ExifDate, WhatFollowsTheSecondsHasNoEffect) {
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (std::string_view end : {"Z", "+02:00", "-0800", ".123", " ", "\n", "x", "99", "\xFF\xC3", "\xE2\x80"}) {
            const auto text = std::string("2023:08:14 14:30:21").append(end);
            SCOPED_TRACE(text + " " + zone);
            EXPECT_EQ(parseExifDate(text), local(2023, 8, 14, 14, 30, 21));
        }
    }
    EXPECT_EQ(parseExifDate(std::string_view("2023:08:14 14:30:21\0", 20)), local(2023, 8, 14, 14, 30, 21));
    EXPECT_EQ(parseExifDate("2023:08:14 14:30:21" + std::string(8'000'000, '1')), local(2023, 8, 14, 14, 30, 21));
}

TEST(ExifDate, TakesEachFieldUpToItsBounds) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(parseExifDate("1901:01:01 00:00:00"), local(1901, 1, 1));
    EXPECT_EQ(parseExifDate("9999:12:31 23:59:59"), local(9999, 12, 31, 23, 59, 59));
    EXPECT_EQ(parseExifDate("2024:02:29 00:00:00"), local(2024, 2, 29));
}

TEST(ExifDate, RefusesAFieldBeyondItsBounds) {
    for (std::string_view text :
         {"1900:12:31 23:59:59", "0000:00:00 00:00:00", "0000-00-00 00:00:00", "2023:00:14 14:30:21",
          "2023:13:14 14:30:21", "2023:08:00 14:30:21", "2023:08:32 14:30:21", "2023:08:14 24:00:00",
          "2023:08:14 14:60:21", "2023:08:14 14:30:60", "9999:99:99 99:99:99"})
        EXPECT_EQ(parseExifDate(text), std::nullopt) << text;
}

TEST(ExifDate, MovesOnADayThatItsMonthDoesNotHave) {
    for (const char* zone : kZones) {
        SCOPED_TRACE(zone);
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(parseExifDate("2023:02:31 10:00:00"), local(2023, 3, 3, 10));
        EXPECT_EQ(parseExifDate("2024-02-31 10:00:00"), local(2024, 3, 2, 10));
        EXPECT_EQ(parseExifDate("2023:02:29 10:00:00"), local(2023, 3, 1, 10));
        EXPECT_EQ(parseExifDate("2023:11:31 10:00:00"), local(2023, 12, 1, 10));
    }
}

TEST(ExifDate, MovesOnAnHourThatClocksSkip) {
    {
        const ScopedTimeZone scope("Europe/Berlin");
        EXPECT_EQ(parseExifDate("2024:03:31 02:30:00"), local(2024, 3, 31, 3, 30));
    }
    {
        const ScopedTimeZone scope("America/Los_Angeles");
        EXPECT_EQ(parseExifDate("2024:03:10 02:30:00"), local(2024, 3, 10, 3, 30));
        EXPECT_EQ(parseExifDate("2024:03:31 02:30:00"), local(2024, 3, 31, 2, 30));
    }
    const ScopedTimeZone scope("Pacific/Apia");
    EXPECT_EQ(parseExifDate("2011:12:30 12:00:00"), local(2011, 12, 31, 12));
}

TEST(ExifDate, AnHourThatClocksShowTwiceIsTheFirst) {
    const ScopedTimeZone scope("Europe/Berlin");
    EXPECT_EQ(parseExifDate("2024:10:27 02:30:00"), instantFromUnixSeconds(std::int64_t{1'729'989'000}));
}

TEST(ExifDate, EveryByteCounts) {
    constexpr std::string_view kDate = "2023:08:14 14:30:21";
    for (std::size_t at = 0; at < kDate.size(); ++at) {
        for (const char c : {' ', '/', 'a', ';', '.', '\0', '\xB2', '\xFF'}) {
            if (at == 10 && c == ' ') continue;
            std::string text(kDate);
            text[at] = c;
            SCOPED_TRACE(text);
            EXPECT_EQ(parseExifDate(text), std::nullopt);
        }
    }
}

TEST(ExifDate, ADashSeparatesDaysButNotMinutes) {
    EXPECT_EQ(parseExifDate("2023:08:14 14-30:21"), std::nullopt);
    EXPECT_EQ(parseExifDate("2023:08:14 14:30-21"), std::nullopt);
    EXPECT_EQ(parseExifDate("2023:08:14:14:30:21"), std::nullopt);
}

TEST(ExifDate, RefusesEveryShorterText) {
    constexpr std::string_view kDate = "2023:08:14 14:30:21";
    for (std::size_t length = 0; length < kDate.size(); ++length)
        EXPECT_EQ(parseExifDate(kDate.substr(0, length)), std::nullopt) << kDate.substr(0, length);
}

TEST(ExifDate, RefusesOtherTexts) {
    for (std::string_view text : {"    :  :     :  :  ", "2023/08/14 14:30:21", "2023/08/14 14:30:21Z",
                                  "2023:08:14T14:30:21", "2023-08-14T14:30:21Z", " 2023:08:14 14:30:21",
                                  "20230814143021", "+023:08:14 14:30:21", "2023:+8:14 14:30:21", "\xFF\xFE", "Canon"})
        EXPECT_EQ(parseExifDate(text), std::nullopt) << text;
    EXPECT_EQ(parseExifDate(std::string(8'000'000, '1')), std::nullopt);
}

TEST(ExifDate, AnotherBeginningNeedsAZoneWhichThenCounts) {
    struct Case {
        std::string_view text;
        std::int64_t unixTime;
    };
    constexpr Case kCases[] = {
        {"1900:12:31 23:59:59Z", -2'177'452'801},      {"1900-12-31 23:59:59Z", -2'177'452'801},
        {"1900:12:31 23:59:59+0200", -2'177'460'001},  {"1900-12-31 23:59:59+0200", -2'177'460'001},
        {"1900:12:31 23:59:59+02:00", -2'177'460'001}, {"1900-12-31 23:59:59-02:00", -2'177'445'601},
        {"2023:8:14 14:30:21Z", 1'692'023'421},        {"2023-8-14 14:30:21+02:00", 1'692'016'221},
        {" 2023:08:14 14:30:21+0200", 1'692'016'221},
    };
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (const auto& [text, unixTime] : kCases) {
            SCOPED_TRACE(std::string(text) + " " + zone);
            EXPECT_EQ(parseExifDate(text), instantFromUnixSeconds(unixTime));
        }
    }
}

TEST(ExifDate, AZoneSavesNoImpossibleDate) {
    for (std::string_view text :
         {"2023:08:14 24:00:00Z", "2023:08:14 14:60:00+0200", "2023:08:14 14:30:60+02:00", "2023-13-14 14:30:21Z",
          "0000:00:00 00:00:00Z", "1900:02:29 00:00:00Z", "1900:12-31 23:59:59Z", "1900:12:31 23:59:59Z "})
        EXPECT_EQ(parseExifDate(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vellomar::ExifUtils
