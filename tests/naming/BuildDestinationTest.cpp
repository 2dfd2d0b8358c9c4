#include <string>

#include <gtest/gtest.h>

#include "naming/BuildDestination.h"
#include "platform/LocalTime.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

const std::string kSource = "/card/DCIM/IMG_4821.JPG";

Instant shot() {
    return strictLocalInstant({2023, 8, 14, 14, 30, 21}).value();
}

Options styled(NamingStyle style) {
    Options options;
    options.namingStyle = style;
    return options;
}

Options templated(const std::string& format) {
    auto options = styled(NamingStyle::custom);
    options.customFormat = format;
    return options;
}

std::string destinationOf(const std::string& source, const std::optional<std::string>& event, const Options& options) {
    return buildDestination(source, shot(), event, "/Lib", options);
}

struct StyleCase {
    NamingStyle style;
    std::string_view path;
};

TEST(BuildDestination, EachStyleHasItsFoldersAndItsName) {
    constexpr StyleCase kCases[] = {
        {NamingStyle::original, "/Lib/2023/08/Vacation/IMG_4821.JPG"},
        {NamingStyle::recommended, "/Lib/2023/08 - August/Vacation/2023-08-14_143021_IMG_4821.jpg"},
        {NamingStyle::cleanDate, "/Lib/2023/August/Vacation/20230814_143021.jpg"},
        {NamingStyle::archival, "/Lib/2023/2023-08-14/2023-08-14_143021.jpg"},
        {NamingStyle::custom, "/Lib/2023/08 - August/Vacation/2023-08-14_143021_IMG_4821.jpg"},
    };
    for (const auto& [style, path] : kCases) {
        SCOPED_TRACE(rawText(style));
        EXPECT_EQ(destinationOf(kSource, "Vacation", styled(style)), path);
    }
}

TEST(BuildDestination, WithoutAnEventItsFolderIsLeftOut) {
    constexpr StyleCase kCases[] = {
        {NamingStyle::original, "/Lib/2023/08/IMG_4821.JPG"},
        {NamingStyle::recommended, "/Lib/2023/08 - August/2023-08-14_143021_IMG_4821.jpg"},
        {NamingStyle::cleanDate, "/Lib/2023/August/20230814_143021.jpg"},
        {NamingStyle::archival, "/Lib/2023/2023-08-14/2023-08-14_143021.jpg"},
        {NamingStyle::custom, "/Lib/2023/08 - August/2023-08-14_143021_IMG_4821.jpg"},
    };
    for (const auto& [style, path] : kCases) {
        SCOPED_TRACE(rawText(style));
        EXPECT_EQ(destinationOf(kSource, std::nullopt, styled(style)), path);
        EXPECT_EQ(destinationOf(kSource, "", styled(style)), path);
    }
}

TEST(BuildDestination, WithoutAnExtensionOnlyTheTemplateKeepsItsDot) {
    constexpr StyleCase kCases[] = {
        {NamingStyle::original, "/Lib/2023/08/scan"},
        {NamingStyle::recommended, "/Lib/2023/08 - August/2023-08-14_143021_scan"},
        {NamingStyle::cleanDate, "/Lib/2023/August/20230814_143021"},
        {NamingStyle::archival, "/Lib/2023/2023-08-14/2023-08-14_143021"},
        {NamingStyle::custom, "/Lib/2023/08 - August/2023-08-14_143021_scan."},
    };
    for (const auto& [style, path] : kCases) {
        SCOPED_TRACE(rawText(style));
        EXPECT_EQ(destinationOf("/card/scan", std::nullopt, styled(style)), path);
    }
}

TEST(BuildDestination, TheLastDotOfTheSourceBeginsItsExtension) {
    EXPECT_EQ(destinationOf("/card/photo.final.JPG", std::nullopt, templated("{original}|{ext}")),
              "/Lib/photo.final|jpg");
    EXPECT_EQ(destinationOf("/card/photo.final.JPG", std::nullopt, styled(NamingStyle::recommended)),
              "/Lib/2023/08 - August/2023-08-14_143021_photo.final.jpg");
}

TEST(BuildDestination, FieldsOfTheDateAreTwoDigitsAndTheYearFour) {
    const auto date = strictLocalInstant({1987, 1, 2, 3, 4, 5}).value();
    EXPECT_EQ(buildDestination("/a/b.c", date, std::nullopt, "/Lib", templated("{YYYY}-{MM}-{DD} {HH}{mm}{ss}")),
              "/Lib/1987-01-02 030405");
}

TEST(BuildDestination, EveryMonthHasItsEnglishName) {
    constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                            "July",    "August",   "September", "October", "November", "December"};
    int month = 0;
    for (const auto name : kMonths) {
        const auto date = strictLocalInstant({2023, ++month, 14, 12, 0, 0}).value();
        EXPECT_EQ(buildDestination("/a/b.c", date, std::nullopt, "/Lib", templated("{Month}")),
                  "/Lib/" + std::string(name));
    }
}

TEST(BuildDestination, AnEmptyTemplateMeansTheDefaultOne) {
    EXPECT_EQ(destinationOf(kSource, "Vacation", templated("")),
              destinationOf(kSource, "Vacation", templated(kDefaultCustomFormat)));
}

TEST(BuildDestination, ATemplateMayNestAndNameAsItLikes) {
    struct Case {
        std::string format;
        std::string_view path;
    };
    const Case cases[] = {
        {"{original}.{ext}", "/Lib/IMG_4821.jpg"},
        {"{YYYY}/{original}", "/Lib/2023/IMG_4821"},
        {"//{YYYY}//{original}.{ext}", "/Lib/2023/IMG_4821.jpg"},
        {"{YYYY}/{Month}/", "/Lib/2023/August"},
        {"{YYYY}/ {Event} /{original}.{ext}", "/Lib/2023/IMG_4821.jpg"},
        {"{MM}{mm}{dd}", "/Lib/0830{dd}"},
    };
    for (const auto& [format, path] : cases) {
        SCOPED_TRACE(format);
        EXPECT_EQ(destinationOf(kSource, std::nullopt, templated(format)), path);
    }
}

TEST(BuildDestination, ATemplateOfBlanksIsTheRootItself) {
    EXPECT_EQ(destinationOf(kSource, "Vacation", templated("   ")), "/Lib");
    EXPECT_EQ(buildDestination(kSource, shot(), "Vacation", "/", templated(" / \t")), "/");
}

TEST(BuildDestination, TheRootMayEndInASlashOrBeNothingElse) {
    const auto options = styled(NamingStyle::original);
    EXPECT_EQ(buildDestination(kSource, shot(), std::nullopt, "/Lib/", options), "/Lib/2023/08/IMG_4821.JPG");
    EXPECT_EQ(buildDestination(kSource, shot(), std::nullopt, "/", options), "/2023/08/IMG_4821.JPG");
    EXPECT_EQ(buildDestination(kSource, shot(), std::nullopt, "/", templated("{original}")), "/IMG_4821");
}

TEST(BuildDestination, ASlashInTheEventNestsFoldersAndIsNeverDoubled) {
    const auto options = styled(NamingStyle::original);
    EXPECT_EQ(destinationOf(kSource, "Italy/Rome", options), "/Lib/2023/08/Italy/Rome/IMG_4821.JPG");
    EXPECT_EQ(destinationOf(kSource, "/Italy//Rome/", options), "/Lib/2023/08/Italy/Rome/IMG_4821.JPG");
    EXPECT_EQ(destinationOf(kSource, "Italy/Rome", styled(NamingStyle::custom)),
              "/Lib/2023/08 - August/Italy/Rome/2023-08-14_143021_IMG_4821.jpg");
}

TEST(BuildDestination, NamesAreNotCleaned) {
    EXPECT_EQ(destinationOf("/card/a:b *?\xff.JPG", "x\\y \xfe", styled(NamingStyle::recommended)),
              "/Lib/2023/08 - August/x\\y \xfe/2023-08-14_143021_a:b *?\xff.jpg");
}

TEST(BuildDestination, ADateInTheSmallHoursKeepsItsLocalDay) {
    for (const char* zone : {"America/Los_Angeles", "UTC", "Pacific/Auckland"}) {
        const testing::ScopedTimeZone scope(zone);
        SCOPED_TRACE(zone);
        const auto date = strictLocalInstant({2023, 9, 1, 0, 5, 0}).value();
        EXPECT_EQ(buildDestination("/a/b.c", date, std::nullopt, "/Lib", styled(NamingStyle::archival)),
                  "/Lib/2023/2023-09-01/2023-09-01_000500.c");
    }
}

}  // namespace
}  // namespace vellomar
