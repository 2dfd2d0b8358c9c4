#include <cstdlib>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "platform/LocalTime.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {

// For failure messages.
void PrintTo(const CivilTime& civil, std::ostream* stream) {
    *stream << civil.year << '-' << civil.month << '-' << civil.day << ' ' << civil.hour << ':' << civil.minute << ':'
            << civil.second;
}

namespace {

using testing::ScopedTimeZone;

constexpr const char* kZones[] = {"UTC",          "Europe/Berlin",    "America/Los_Angeles",
                                  "Asia/Kolkata", "Pacific/Auckland", "Pacific/Apia"};

struct Reading {
    const char* zone;
    CivilTime civil;
    std::int64_t unixTime;
};

// A reading in each zone, winter and summer.
constexpr Reading kReadings[] = {
    {"UTC", {2024, 1, 15, 12, 0, 0}, 1'705'320'000},
    {"UTC", {1970, 1, 1, 0, 0, 0}, 0},
    {"UTC", {1969, 12, 31, 23, 59, 59}, -1},
    {"UTC", {1901, 1, 1, 0, 0, 0}, -2'177'452'800},
    {"UTC", {9999, 12, 31, 23, 59, 59}, 253'402'300'799},
    {"Europe/Berlin", {2024, 1, 15, 13, 0, 0}, 1'705'320'000},
    {"Europe/Berlin", {2024, 7, 15, 14, 0, 0}, 1'721'044'800},
    {"America/Los_Angeles", {2024, 1, 15, 4, 0, 0}, 1'705'320'000},
    {"America/Los_Angeles", {2024, 7, 15, 5, 0, 0}, 1'721'044'800},
    {"Asia/Kolkata", {2024, 1, 15, 17, 30, 0}, 1'705'320'000},
    {"Pacific/Auckland", {2024, 1, 16, 1, 0, 0}, 1'705'320'000},
    {"Pacific/Auckland", {2024, 7, 16, 0, 0, 0}, 1'721'044'800},
};

TEST(LocalTime, ReadsTheClockOfEachZone) {
    for (const auto& [zone, civil, unixTime] : kReadings) {
        SCOPED_TRACE(std::string(zone) + " " + std::to_string(unixTime));
        const ScopedTimeZone scope(zone);
        const auto instant = instantFromUnixSeconds(unixTime);
        EXPECT_EQ(localCivilTime(instant), civil);
        EXPECT_EQ(strictLocalInstant(civil), instant);
        EXPECT_EQ(lenientLocalInstant(civil), instant);
    }
}

TEST(LocalTime, TellsTheDistanceToUtc) {
    struct Case {
        const char* zone;
        int winter;  // on 2024-01-15
        int summer;  // on 2024-07-15
    };
    constexpr Case kCases[] = {
        {"UTC", 0, 0},
        {"Europe/Berlin", 3'600, 7'200},
        {"America/Los_Angeles", -28'800, -25'200},
        {"Asia/Kolkata", 19'800, 19'800},
        {"Pacific/Auckland", 46'800, 43'200},
    };
    for (const auto& [zone, winter, summer] : kCases) {
        SCOPED_TRACE(zone);
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(localUtcOffset(instantFromUnixSeconds(std::int64_t{1'705'320'000})), winter);
        EXPECT_EQ(localUtcOffset(instantFromUnixSeconds(std::int64_t{1'721'044'800})), summer);
    }
}

TEST(LocalTime, FractionsFallTowardsThePast) {
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(localCivilTime(instantFromUnixSeconds(0.9)), (CivilTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(localCivilTime(instantFromUnixSeconds(-0.1)), (CivilTime{1969, 12, 31, 23, 59, 59}));
}

struct Skipped {
    const char* zone;
    CivilTime civil;
    CivilTime movedOn;
};

// The hours that are left out when clocks go forward, and Samoa's day when it crossed the date line.
constexpr Skipped kSkipped[] = {
    {"Europe/Berlin", {2024, 3, 31, 2, 0, 0}, {2024, 3, 31, 3, 0, 0}},
    {"Europe/Berlin", {2024, 3, 31, 2, 59, 59}, {2024, 3, 31, 3, 59, 59}},
    {"America/Los_Angeles", {2024, 3, 10, 2, 30, 0}, {2024, 3, 10, 3, 30, 0}},
    {"Pacific/Auckland", {2024, 9, 29, 2, 30, 0}, {2024, 9, 29, 3, 30, 0}},
    {"Pacific/Apia", {2011, 12, 30, 0, 0, 0}, {2011, 12, 31, 0, 0, 0}},
    {"Pacific/Apia", {2011, 12, 30, 12, 0, 0}, {2011, 12, 31, 12, 0, 0}},
    {"Pacific/Apia", {2011, 12, 30, 23, 59, 59}, {2011, 12, 31, 23, 59, 59}},
};

TEST(LocalTime, AStrictReadingMustHaveHappened) {
    for (const auto& [zone, civil, movedOn] : kSkipped) {
        SCOPED_TRACE(::testing::PrintToString(civil) + " " + zone);
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(strictLocalInstant(civil), std::nullopt);
        EXPECT_TRUE(strictLocalInstant(movedOn).has_value());
    }
}

TEST(LocalTime, ALenientReadingMovesOnBehindTheGap) {
    for (const auto& [zone, civil, movedOn] : kSkipped) {
        SCOPED_TRACE(::testing::PrintToString(civil) + " " + zone);
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(localCivilTime(lenientLocalInstant(civil)), movedOn);
    }
}

TEST(LocalTime, TheEdgesOfAGapExist) {
    const ScopedTimeZone scope("Europe/Berlin");
    const auto before = strictLocalInstant({2024, 3, 31, 1, 59, 59});
    const auto behind = strictLocalInstant({2024, 3, 31, 3, 0, 0});
    ASSERT_TRUE(before && behind);
    EXPECT_EQ(*behind - *before, std::chrono::seconds(1));
}

TEST(LocalTime, TheEdgesOfAMissingDayExist) {
    const ScopedTimeZone scope("Pacific/Apia");
    const auto before = strictLocalInstant({2011, 12, 29, 23, 59, 59});
    const auto behind = strictLocalInstant({2011, 12, 31, 0, 0, 0});
    ASSERT_TRUE(before && behind);
    EXPECT_EQ(*behind - *before, std::chrono::seconds(1));
}

TEST(LocalTime, ADoubledReadingIsTheFirstOfTheTwo) {
    struct Case {
        const char* zone;
        CivilTime civil;
        std::int64_t first;
    };
    constexpr Case kCases[] = {
        {"Europe/Berlin", {2024, 10, 27, 2, 30, 0}, 1'729'989'000},
        {"America/Los_Angeles", {2024, 11, 3, 1, 30, 0}, 1'730'622'600},
        {"Pacific/Auckland", {2024, 4, 7, 2, 30, 0}, 1'712'410'200},
    };
    for (const auto& [zone, civil, first] : kCases) {
        SCOPED_TRACE(zone);
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(strictLocalInstant(civil), instantFromUnixSeconds(first));
        EXPECT_EQ(lenientLocalInstant(civil), instantFromUnixSeconds(first));
        EXPECT_EQ(localCivilTime(instantFromUnixSeconds(first + 3'600)), civil);
    }
}

TEST(LocalTime, AStrictReadingStaysWithinTheCalendar) {
    constexpr CivilTime kImpossible[] = {
        {2023, 2, 29, 0, 0, 0}, {2024, 2, 30, 0, 0, 0}, {2024, 4, 31, 0, 0, 0}, {2024, 13, 1, 0, 0, 0},
        {2024, 0, 1, 0, 0, 0},  {2024, 1, 0, 0, 0, 0},  {2024, 1, 32, 0, 0, 0}, {2024, 1, 1, 24, 0, 0},
        {2024, 1, 1, 0, 60, 0}, {2024, 1, 1, 0, 0, 60}, {2024, 1, 1, -1, 0, 0}, {1900, 2, 29, 0, 0, 0},
    };
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (const auto& civil : kImpossible) {
            SCOPED_TRACE(::testing::PrintToString(civil) + " " + zone);
            EXPECT_EQ(strictLocalInstant(civil), std::nullopt);
        }
        EXPECT_TRUE(strictLocalInstant({2024, 2, 29, 12, 0, 0}).has_value()) << zone;
        EXPECT_TRUE(strictLocalInstant({2000, 2, 29, 12, 0, 0}).has_value()) << zone;
    }
}

TEST(LocalTime, ALenientReadingCarriesWhatOverflows) {
    struct Case {
        CivilTime civil;
        CivilTime carried;
    };
    constexpr Case kCases[] = {
        {{2023, 2, 31, 12, 0, 0}, {2023, 3, 3, 12, 0, 0}}, {{2024, 2, 31, 12, 0, 0}, {2024, 3, 2, 12, 0, 0}},
        {{2024, 13, 1, 12, 0, 0}, {2025, 1, 1, 12, 0, 0}}, {{2024, 6, 30, 24, 0, 0}, {2024, 7, 1, 0, 0, 0}},
        {{2024, 6, 1, 12, 60, 0}, {2024, 6, 1, 13, 0, 0}}, {{2024, 6, 1, 12, 0, 60}, {2024, 6, 1, 12, 1, 0}},
        {{2024, 6, 0, 12, 0, 0}, {2024, 5, 31, 12, 0, 0}},
    };
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (const auto& [civil, carried] : kCases) {
            SCOPED_TRACE(::testing::PrintToString(civil) + " " + zone);
            EXPECT_EQ(localCivilTime(lenientLocalInstant(civil)), carried);
        }
    }
}

TEST(LocalTime, WhatTheClockShowsLeadsBackFromEveryMonthOfEveryYear) {
    for (const char* zone : kZones) {
        const ScopedTimeZone scope(zone);
        for (const int year : {1, 1582, 1883, 1901, 1945, 1969, 1970, 1999, 2011, 2024, 2038, 2500, 9999}) {
            for (int month = 1; month <= 12; ++month) {
                const CivilTime civil{year, month, 14, 10, 20, 30};
                SCOPED_TRACE(::testing::PrintToString(civil) + " " + zone);
                const auto instant = strictLocalInstant(civil);
                ASSERT_TRUE(instant.has_value());
                EXPECT_EQ(localCivilTime(*instant), civil);
                EXPECT_EQ(lenientLocalInstant(civil), *instant);
            }
        }
    }
}

TEST(LocalTime, EveryQuarterOfAnHourNearAClockChangeLeadsBack) {
    constexpr std::int64_t kQuarter = 900;
    constexpr std::int64_t kHour = 3'600;
    struct Change {
        const char* zone;
        std::int64_t unixTime;
        std::int64_t doubled;  // seconds that the clock shows twice
    };
    constexpr Change kChanges[] = {
        {"Europe/Berlin", 1'711'846'800, 0},        {"Europe/Berlin", 1'729'990'800, kHour},
        {"America/Los_Angeles", 1'710'064'800, 0},  {"America/Los_Angeles", 1'730'624'400, kHour},
        {"Pacific/Auckland", 1'712'412'000, kHour}, {"Pacific/Auckland", 1'727'532'000, 0},
        {"Pacific/Apia", 1'325'239'200, 0},
    };
    for (const auto& [zone, change, doubled] : kChanges) {
        const ScopedTimeZone scope(zone);
        for (auto time = change - 36 * kHour; time < change + 36 * kHour; time += kQuarter) {
            SCOPED_TRACE(std::string(zone) + " " + std::to_string(time));
            const bool isSecondShowing = time >= change && time < change + doubled;
            const auto expected = instantFromUnixSeconds(isSecondShowing ? time - doubled : time);
            EXPECT_EQ(strictLocalInstant(localCivilTime(instantFromUnixSeconds(time))), expected);
        }
    }
}

TEST(LocalTime, ANewZoneIsNoticed) {
    const auto noon = instantFromUnixSeconds(std::int64_t{1'705'320'000});
    const ScopedTimeZone utc("UTC");
    EXPECT_EQ(localCivilTime(noon).hour, 12);
    setenv("TZ", "Asia/Kolkata", 1);
    refreshLocalZone();
    EXPECT_EQ(localCivilTime(noon), (CivilTime{2024, 1, 15, 17, 30, 0}));
}

}  // namespace
}  // namespace vellomar
