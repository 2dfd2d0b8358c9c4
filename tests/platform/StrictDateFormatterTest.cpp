#include <array>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/StrictDateFormatter.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr Instant kAugust = instantFromUnixSeconds(std::int64_t{1'692'023'421});  // 2023-08-14 14:30:21 UTC
constexpr std::string_view kAugustText = "2023-08-14 14:30:21";

// With both of ICU's letters for a zone: Z is that of +0200, three X are those of +02:00.
std::vector<std::string> zonePatterns() {
    const std::string date = "yyyy-MM-dd HH:mm:ss";
    return {date + "Z", date + std::string(3, 'X')};
}

TEST(StrictDateFormatter, HonoursEverySpellingOfTheZone) {
    struct Case {
        std::string_view zone;
        std::chrono::seconds ahead;
    };
    constexpr Case kCases[] = {
        {"+0200", 2h},
        {"+02:00", 2h},
        {"+02", 2h},
        {"+2", 2h},
        {"-0530", -5h - 30min},
        {"-05:30", -5h - 30min},
        {"+0000", 0s},
        {"-00:00", 0s},
        {"Z", 0s},
        {"z", 0s},
        {"GMT", 0s},
        {"UTC", 0s},
        {"UT", 0s},
        {"GMT+2", 2h},
        {"GMT+02:00", 2h},
        {"UTC+0200", 2h},
        {"+02:00:30", 2h + 30s},
        {"+2359", 23h + 59min},
        {" +0200", 2h},
        {"+020", 20min},
    };
    for (const auto& pattern : zonePatterns()) {
        const StrictDateFormatter formatter(pattern);
        for (const auto& [zone, ahead] : kCases) {
            const auto text = std::string(kAugustText).append(zone);
            SCOPED_TRACE(text + " by " + pattern);
            EXPECT_EQ(formatter.parse(text), kAugust - ahead);
        }
    }
}

TEST(StrictDateFormatter, RefusesWhatIsNoZoneOrMore) {
    constexpr std::string_view kEnds[] = {
        "",          " ",          "+",       "CEST",   "EST",     "Europe/Berlin",
        ".123+0200", "\u22120200", "+2400",   "+2500",  "+24:00",  "+0260",
        "+ 0200",    "GMT+0200",   "+0200 ",  "+0200x", "Zx",      "Z ",
        "Z\n",       "+0200+",     "+0200\t", "ZZ",     "+02:00:", "+0200\xEF\xBF\xBD",
    };
    for (const auto& pattern : zonePatterns()) {
        const StrictDateFormatter formatter(pattern);
        for (const auto end : kEnds) {
            const auto text = std::string(kAugustText).append(end);
            SCOPED_TRACE(text + " by " + pattern);
            EXPECT_EQ(formatter.parse(text), std::nullopt);
        }
    }
}

TEST(StrictDateFormatter, RefusesDatesAndTimesThatDoNotExist) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    for (std::string_view text :
         {"2023-02-31 14:30:21Z", "2023-02-29 14:30:21Z", "2023-04-31 14:30:21Z", "2023-13-14 14:30:21Z",
          "2023-00-14 14:30:21Z", "2023-08-00 14:30:21Z", "2023-08-32 14:30:21Z", "2023-08-14 24:00:00Z",
          "2023-08-14 23:60:00Z", "2023-08-14 23:59:60Z", "0000-01-01 00:00:00Z", "0000-00-00 00:00:00Z",
          "-2023-08-14 14:30:21Z", "144684-01-01 00:00:00Z", "99999999999999999999-08-14 14:30:21Z"})
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
}

TEST(StrictDateFormatter, TakesDaysAndYearsAtTheEdges) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    struct Case {
        std::string_view text;
        std::int64_t unixTime;
    };
    constexpr Case kCases[] = {
        {"2024-02-29 23:59:59Z", 1'709'251'199},
        {"1900-12-31 23:59:59Z", -2'177'452'801},
        {"1970-01-01 00:00:00Z", 0},
        {"1969-12-31 23:59:59Z", -1},
        {"9999-12-31 23:59:59Z", 253'402'300'799},
        {"12023-08-14 14:30:21Z", 317'261'543'421},
        {"144683-12-31 00:00:00Z", 4'503'618'748'800},  // the last year that ICU knows
        {"23-08-14 14:30:21Z", -61'422'053'379},        // no century is guessed at
    };
    for (const auto& [text, unixTime] : kCases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(formatter.parse(text), instantFromUnixSeconds(unixTime));
    }
}

TEST(StrictDateFormatter, PassesOverBlanksBeforeAFieldAndLeavesOutZeros) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    for (std::string_view text : {" 2023-08-14 14:30:21Z", "\t2023-08-14 14:30:21Z", "2023-08-14  14:30:21Z",
                                  "2023- 08-14 14:30:21Z", "2023-8-14 14:30:21Z", "02023-08-14 14:30:21Z"})
        EXPECT_EQ(formatter.parse(text), kAugust) << text;
}

TEST(StrictDateFormatter, TheWholeTextMustFit) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    for (std::string_view text :
         {"", " ", "Z", "2023", "2023-08-14", "2023:08:14 14:30:21Z", "2023/08/14 14:30:21Z", "2023-08-14T14:30:21Z",
          "2023-08-1414:30:21Z", "2023 -08-14 14:30:21Z", "x2023-08-14 14:30:21Z", "+2023-08-14 14:30:21Z",
          "2,023-08-14 14:30:21Z", "2023-Aug-14 14:30:21Z", "2023-August-14 14:30:21Z"})
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
    EXPECT_EQ(formatter.parse(std::string_view("2023-08-14 14:30:21Z\0", 21)), std::nullopt);
    EXPECT_EQ(formatter.parse(std::string_view("2023-08-14\0 14:30:21Z", 21)), std::nullopt);
}

TEST(StrictDateFormatter, QuotedLettersStandForThemselves) {
    const StrictDateFormatter formatter("yyyy-MM-dd'T'HH:mm:ssZ");
    EXPECT_EQ(formatter.parse("2023-08-14T14:30:21+0000"), kAugust);
    EXPECT_EQ(formatter.parse("2023-08-14 14:30:21+0000"), std::nullopt);
    EXPECT_EQ(formatter.parse("2023-08-14t14:30:21+0000"), std::nullopt);
}

TEST(StrictDateFormatter, ATextThatIsNotUtf8FitsNothing) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    for (std::string_view text : {"\xFF", "\xC3", "2023-08-14 14:30:21Z\xFF", "2023-08-14\xA0 14:30:21Z",
                                  "\xED\xA0\x80 2023-08-14 14:30:21Z", "\xC0\xB0 2023-08-14 14:30:21Z"})
        EXPECT_EQ(formatter.parse(text), std::nullopt) << text;
}

TEST(StrictDateFormatter, NoBrokenByteIsTakenForTheCharacterThatStandsForSuch) {
    const StrictDateFormatter formatter("\uFFFDyyyy-MM-dd HH:mm:ssZ");
    EXPECT_EQ(formatter.parse("\uFFFD2023-08-14 14:30:21Z"), kAugust);
    EXPECT_EQ(formatter.parse("\xFF" + std::string("2023-08-14 14:30:21Z")), std::nullopt);
}

TEST(StrictDateFormatter, ALongTextFitsNothingAndCostsNothing) {
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    const std::string date = "2023-08-14 14:30:21Z";
    EXPECT_EQ(formatter.parse(std::string(256 - date.size(), '0') + date), kAugust);
    EXPECT_EQ(formatter.parse(std::string(257 - date.size(), '0') + date), std::nullopt);
    EXPECT_EQ(formatter.parse(std::string(8'000'000, '1')), std::nullopt);
}

TEST(StrictDateFormatter, ATextWithoutAZoneIsTakenInUtcWhereverTheMachineIs) {
    for (const char* zone : {"UTC", "Europe/Berlin", "America/Los_Angeles", "Pacific/Apia"}) {
        SCOPED_TRACE(zone);
        const testing::ScopedTimeZone scope(zone);
        const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ss");
        EXPECT_EQ(formatter.parse(kAugustText), kAugust);
        EXPECT_EQ(formatter.parse("2024-03-31 02:30:00"), instantFromUnixSeconds(std::int64_t{1'711'852'200}));
    }
}

TEST(StrictDateFormatter, APatternOfMeaninglessLettersFitsNothing) {
    for (std::string_view pattern : {"jj", "bbbbbbbb", "IIII"}) {
        const StrictDateFormatter formatter(pattern);
        for (std::string_view text : {"", "2023", "jj", "2023-08-14 14:30:21Z"})
            EXPECT_EQ(formatter.parse(text), std::nullopt) << pattern << " and " << text;
    }
}

TEST(StrictDateFormatter, ServesManyThreadsAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kTexts = 500;
    constexpr std::array<std::string_view, 4> kSuffixes = {"Z", "+0100", "+02:00", "GMT+3"};
    const StrictDateFormatter formatter("yyyy-MM-dd HH:mm:ssZ");
    std::atomic<int> wrong = 0;
    const auto readTexts = [&](int firstYear) {
        for (int year = firstYear; year < firstYear + kTexts; ++year) {
            const auto hoursAhead = static_cast<std::size_t>(year) % kSuffixes.size();
            const auto text = std::to_string(year) + "-08-14 14:30:21" + std::string(kSuffixes[hoursAhead]);
            const auto day = std::chrono::sys_days(std::chrono::year(year) / 8 / 14);
            if (formatter.parse(text) != day + 14h + 30min + 21s - std::chrono::hours(hoursAhead)) ++wrong;
            if (formatter.parse("2023-02-30 14:30:21Z")) ++wrong;
        }
    };
    std::vector<std::jthread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back(readTexts, 1900 + thread * kTexts);
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace vellomar
