#include <clocale>

#include <gtest/gtest.h>

#include "engine/model/DateString.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using testing::ScopedTimeZone;

constexpr Instant kAfternoon = instantFromUnixSeconds(std::int64_t{1'691'586'065}) +
                               std::chrono::microseconds(123'456);  // Wednesday 2023-08-09 13:01:05.123456 UTC
constexpr Instant kMidnight = instantFromUnixSeconds(std::int64_t{1'691'539'200});  // 2023-08-09 00:00:00 UTC

TEST(DateString, EachFieldInEachWidth) {
    struct Case {
        std::string_view pattern;
        std::string_view text;
    };
    constexpr Case kCases[] = {
        {"y", "2023"},
        {"yy", "23"},
        {"yyyy", "2023"},
        {"yyyyy", "02023"},
        {"M", "8"},
        {"MM", "08"},
        {"MMM", "Aug"},
        {"MMMM", "August"},
        {"d", "9"},
        {"dd", "09"},
        {"E", "Wed"},
        {"EEE", "Wed"},
        {"EEEE", "Wednesday"},
        {"a", "PM"},
        {"H", "13"},
        {"HH", "13"},
        {"h", "1"},
        {"hh", "01"},
        {"m", "1"},
        {"mm", "01"},
        {"s", "5"},
        {"ss", "05"},
        {"S", "1"},
        {"SSS", "123"},
        {"SSSSSS", "123456"},
        {"Z", "+0000"},
        {"SSSSSSSS", "12345600"},
    };
    const ScopedTimeZone utc("UTC");
    for (const auto& [pattern, text] : kCases) {
        SCOPED_TRACE(pattern);
        EXPECT_EQ(dateString(kAfternoon, pattern), text);
    }
}

TEST(DateString, TheTwelveHoursOfAClockFace) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(dateString(kMidnight, "h a H"), "12 AM 0");
    EXPECT_EQ(dateString(kMidnight + std::chrono::hours(11), "h a H"), "11 AM 11");
    EXPECT_EQ(dateString(kMidnight + std::chrono::hours(12), "h a H"), "12 PM 12");
    EXPECT_EQ(dateString(kMidnight + std::chrono::hours(23), "h a H"), "11 PM 23");
}

TEST(DateString, ThePatternsOfTheProgram) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(dateString(kAfternoon, "yyyy-MM-dd HH:mm:ss"), "2023-08-09 13:01:05");
    EXPECT_EQ(dateString(kAfternoon, "yyyy-MM-dd'T'HH:mm:ss"), "2023-08-09T13:01:05");
    EXPECT_EQ(dateString(kAfternoon, "yyyy-MM-dd_HHmmss"), "2023-08-09_130105");
}

TEST(DateString, QuotedTextStandsForItself) {
    struct Case {
        std::string_view pattern;
        std::string_view text;
    };
    constexpr Case kCases[] = {
        {"", ""},
        {"'yyyy'", "yyyy"},
        {"yyyy'year'MM", "2023year08"},
        {"''", "'"},
        {"yyyy''MM", "2023'08"},
        {"'it''s' yyyy", "it's 2023"},
        {"'open yyyy", "open yyyy"},
        {"—yyyy—", "—2023—"},
        {"yyyy/MM.dd, ", "2023/08.09, "},
    };
    const ScopedTimeZone utc("UTC");
    for (const auto& [pattern, text] : kCases) {
        SCOPED_TRACE(pattern);
        EXPECT_EQ(dateString(kAfternoon, pattern), text);
    }
}

TEST(DateString, IsTheTimeOfTheLocalZone) {
    struct Case {
        const char* zone;
        std::string_view text;
    };
    constexpr Case kCases[] = {
        {"UTC", "2023-08-09 13:01:05 +0000"},
        {"Europe/Berlin", "2023-08-09 15:01:05 +0200"},
        {"America/Los_Angeles", "2023-08-09 06:01:05 -0700"},
        {"America/St_Johns", "2023-08-09 10:31:05 -0230"},
        {"Asia/Kolkata", "2023-08-09 18:31:05 +0530"},
        {"Pacific/Auckland", "2023-08-10 01:01:05 +1200"},
    };
    for (const auto& [zone, text] : kCases) {
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(dateString(kAfternoon, "yyyy-MM-dd HH:mm:ss Z"), text) << zone;
    }
}

TEST(DateString, IsEnglishInEveryLanguage) {
    const ScopedTimeZone utc("UTC");
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"", "C.UTF-8", "de_DE.UTF-8", "ar_EG.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(dateString(kAfternoon, "EEEE d MMMM yyyy a"), "Wednesday 9 August 2023 PM") << locale;
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(DateString, EveryWeekdayAndMonthHasItsName) {
    const ScopedTimeZone utc("UTC");
    constexpr std::string_view kDays[] = {"Wednesday", "Thursday", "Friday", "Saturday", "Sunday", "Monday", "Tuesday"};
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(dateString(kMidnight + std::chrono::days(day), "EEEE"), kDays[day]);
    constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                            "July",    "August",   "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(monthName(month), kMonths[month - 1]);
}

TEST(DateString, DatesBeforeTheEpochAndFarAhead) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(dateString(Instant(std::chrono::microseconds(-1)), "EEE yyyy-MM-dd HH:mm:ss.SSSSSS"),
              "Wed 1969-12-31 23:59:59.999999");
    EXPECT_EQ(dateString(instantFromUnixSeconds(std::int64_t{-2'177'452'800}), "EEE yyyy-MM-dd"), "Tue 1901-01-01");
    EXPECT_EQ(dateString(instantFromUnixSeconds(std::int64_t{253'402'300'799}), "EEE yyyy-MM-dd HH:mm:ss"),
              "Fri 9999-12-31 23:59:59");
}

TEST(DateString, AReadingIsWrittenAsItIs) {
    EXPECT_EQ(dateTimeText({2023, 8, 9, 1, 2, 3}), "2023-08-09 01:02:03");
    EXPECT_EQ(dateTimeText({2023, 2, 31, 24, 0, 0}), "2023-02-31 24:00:00");
}

}  // namespace
}  // namespace vellomar
