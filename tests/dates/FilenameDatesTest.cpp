#include <chrono>

#include <gtest/gtest.h>

#include "dates/FilenameDates.h"
#include "engine/model/DateString.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr Instant kNow = instantFromUnixSeconds(std::int64_t{1'780'000'000});  // May 2026

std::string textOf(Instant date) {
    return dateString(date, "yyyy-MM-dd HH:mm:ss");
}

struct NameCase {
    std::string_view stem;
    std::string_view date;  // local
    std::string_view source;
    int score;
};

template <std::size_t count>
void expectDates(const NameCase (&cases)[count]) {
    for (const auto& [stem, date, source, score] : cases) {
        SCOPED_TRACE(stem);
        const auto found = filenameCandidate(stem, kNow);
        ASSERT_TRUE(found.has_value());
        EXPECT_EQ(textOf(found->date), date);
        EXPECT_EQ(found->source, source);
        EXPECT_EQ(found->score, score);
    }
}

TEST(FilenameDates, ReadsTimestampsOfTenAndOfThirteenDigits) {
    for (std::string_view stem : {"1691234567", "1691234567890", "FB_IMG_1691234567890", "x1691234567x"}) {
        SCOPED_TRACE(stem);
        EXPECT_EQ(filenameCandidate(stem, kNow),
                  (DateCandidate{instantFromUnixSeconds(std::int64_t{1'691'234'567}), "Filename-UnixTS", 72}));
    }
    EXPECT_EQ(filenameCandidate("1234567890", kNow),
              (DateCandidate{instantFromUnixSeconds(std::int64_t{1'234'567'890}), "Filename-UnixTS", 72}));
    EXPECT_EQ(filenameCandidate("1000000000", kNow)->source, "Filename-UnixTS");
}

TEST(FilenameDates, OtherNumbersAreNoTimestamps) {
    for (std::string_view stem :
         {"169123456", "16912345678", "169123456789", "16912345678901", "0999999999", "2691234567", "1999999999"})
        EXPECT_FALSE(filenameCandidate(stem, kNow).has_value()) << stem;
}

TEST(FilenameDates, ATimestampMustLieInThePast) {
    const auto stamp = instantFromUnixSeconds(std::int64_t{1'691'234'567});
    EXPECT_FALSE(filenameCandidate("1691234567", stamp - 1s).has_value());
    EXPECT_FALSE(filenameCandidate("1691234567", stamp).has_value());
    EXPECT_TRUE(filenameCandidate("1691234567", stamp + 1us).has_value());
    EXPECT_FALSE(filenameCandidate("1691234567999", stamp).has_value());
}

TEST(FilenameDates, ATimestampToComeIsReadAsADateIfItLooksLikeOne) {
    expectDates({{"1920010112", "1920-01-01 00:00:00", "Filename", 70}});
}

TEST(FilenameDates, ReadsScreenshots) {
    expectDates({
        {"Screenshot 2023-08-14 at 2.30.21 PM", "2023-08-14 14:30:21", "Filename-Screenshot", 75},
        {"Screenshot 2023-08-14 at 02.30.21 AM", "2023-08-14 02:30:21", "Filename-Screenshot", 75},
        {"Screenshot 2023-08-14 at 12.30.21 AM", "2023-08-14 00:30:21", "Filename-Screenshot", 75},
        {"Screenshot 2023-08-14 at 12.30.21 PM", "2023-08-14 12:30:21", "Filename-Screenshot", 75},
        {"2023-08-14 at 11.59.59 PM copy", "2023-08-14 23:59:59", "Filename-Screenshot", 75},
    });
}

TEST(FilenameDates, AScreenshotWithAnImpossibleTimeIsReadAsADate) {
    expectDates({
        {"Screenshot 2023-08-14 at 13.30.21 PM", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 14.30.21 PM", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 0.30.21 AM", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 2.60.21 PM", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 2.30.60 PM", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 2.30.21 pm", "2023-08-14 00:00:00", "Filename", 60},
        {"Screenshot 2023-08-14 at 14.30.21", "2023-08-14 00:00:00", "Filename", 60},
    });
    EXPECT_FALSE(filenameCandidate("Screenshot 2023-02-30 at 2.30.21 PM", kNow).has_value());
    EXPECT_FALSE(filenameCandidate("Screenshot 0000-02-03 at 2.30.21 PM", kNow).has_value());
}

TEST(FilenameDates, ReadsWhatsAppNames) {
    expectDates({
        {"IMG-20230814-WA0001", "2023-08-14 00:00:00", "Filename-WhatsApp", 73},
        {"VID-20230814-WA1", "2023-08-14 00:00:00", "Filename-WhatsApp", 73},
        {"copy of IMG-20230814-WA0001 (2)", "2023-08-14 00:00:00", "Filename-WhatsApp", 73},
        {"AUD-20230814-WA0001", "2023-08-14 00:00:00", "Filename", 70},
        {"img-20230814-WA0001", "2023-08-14 00:00:00", "Filename", 70},
        {"IMG-20230814-WA", "2023-08-14 00:00:00", "Filename", 60},
    });
}

TEST(FilenameDates, ReadsSignalNamesAndTheirLike) {
    expectDates({
        {"signal-2023-08-14-14-30-21", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"signal-2023-08-14-14-30-21-123", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"photo_2023-08-14_14-30-21", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"video-2023-08-14-14-30-21", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"signal_2023_08_14_14_30_21", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"Signal-2023-08-14-14-30-21", "2023-08-14 14:30:21", "Filename", 70},
        {"signal-2023-08-14-25-30-21", "2023-08-14 00:00:00", "Filename", 60},
        {"signal-2023-08-14", "2023-08-14 00:00:00", "Filename", 60},
    });
}

TEST(FilenameDates, ReadsCompactNames) {
    expectDates({
        {"20230814_143021", "2023-08-14 14:30:21", "Filename", 70},
        {"20230814-143021", "2023-08-14 14:30:21", "Filename", 70},
        {"20230814143021", "2023-08-14 14:30:21", "Filename", 70},
        {"img_20230814_143021", "2023-08-14 14:30:21", "Filename", 70},
        {"DSC_20230814_143021", "2023-08-14 14:30:21", "Filename", 70},
        {"19991231_235959", "1999-12-31 23:59:59", "Filename", 70},
        {"20230814", "2023-08-14 00:00:00", "Filename", 70},
        {"vacation-20230814", "2023-08-14 00:00:00", "Filename", 70},
        {"20230814T143021", "2023-08-14 00:00:00", "Filename", 70},
        {"20230814_1430", "2023-08-14 00:00:00", "Filename", 70},
        {"20230814-0200", "2023-08-14 00:00:00", "Filename", 70},
    });
}

TEST(FilenameDates, PrefixedCompactNameLosesItsTime) {
    expectDates({
        {"IMG_20230814_143021", "2023-08-14 00:00:00", "Filename", 60},
        {"VID-20230814_143021", "2023-08-14 00:00:00", "Filename", 60},
        {"PXL.20230814_143021", "2023-08-14 00:00:00", "Filename", 60},
        {"PHOTO_20230814_143021", "2023-08-14 00:00:00", "Filename", 60},
        {"IMG_20230814", "2023-08-14 00:00:00", "Filename", 60},
        {"PXL_20230814_143021123", "2023-08-14 00:00:00", "Filename", 60},
    });
}

TEST(FilenameDates, AZoneInANameShiftsNothingAndCostsTheTime) {
    expectDates({
        {"20230814_143021Z", "2023-08-14 00:00:00", "Filename", 60},
        {"20230814_143021z", "2023-08-14 00:00:00", "Filename", 60},
        {"20230814_143021+0200", "2023-08-14 00:00:00", "Filename", 60},
        {"20230814_143021-0500", "2023-08-14 00:00:00", "Filename", 60},
        {"20230814Z", "2023-08-14 00:00:00", "Filename", 60},
        {"20230814+0200", "2023-08-14 00:00:00", "Filename", 60},
        {"2023-08-14 14.30.21Z", "2023-08-14 00:00:00", "Filename", 60},
        {"2023-08-14 14.30.21+0200", "2023-08-14 00:00:00", "Filename", 60},
    });
}

TEST(FilenameDates, ReadsSeparatedNames) {
    expectDates({
        {"2023-08-14 14.30.21", "2023-08-14 14:30:21", "Filename", 70},
        {"2023-08-14 14:30:21", "2023-08-14 14:30:21", "Filename", 70},
        {"2023_08_14_14_30_21", "2023-08-14 14:30:21", "Filename", 70},
        {"2023.08.14-14-30-21", "2023-08-14 14:30:21", "Filename", 70},
        {"2023-08-14143021", "2023-08-14 14:30:21", "Filename", 70},
        {"WhatsApp Image 2023-08-14 14.30.21", "2023-08-14 14:30:21", "Filename", 70},
    });
}

TEST(FilenameDates, ASeparatedTimeWithoutSecondsIsLost) {
    expectDates({{"2023-08-14 14.30", "2023-08-14 00:00:00", "Filename", 60}});
}

TEST(FilenameDates, ReadsDatesAlone) {
    expectDates({
        {"2023-08-14", "2023-08-14 00:00:00", "Filename", 60},
        {"2023_08_14", "2023-08-14 00:00:00", "Filename", 60},
        {"2023.08.14", "2023-08-14 00:00:00", "Filename", 60},
        {"202308-14", "2023-08-14 00:00:00", "Filename", 60},
        {"1901-01-01", "1901-01-01 00:00:00", "Filename", 60},
        {"2024-02-29", "2024-02-29 00:00:00", "Filename", 60},
        {"WhatsApp Image 2023-08-14 at 14.30.21", "2023-08-14 00:00:00", "Filename", 60},
    });
}

TEST(FilenameDates, TheFirstShapeThatYieldsADateEndsTheSearch) {
    expectDates({
        {"2023-08-14 at 2.30.21 PM IMG-20220101-WA0001", "2023-08-14 14:30:21", "Filename-Screenshot", 75},
        {"signal-2023-08-14-14-30-21 IMG-20220101-WA0001", "2022-01-01 00:00:00", "Filename-WhatsApp", 73},
        {"20220101 signal-2023-08-14-14-30-21", "2023-08-14 14:30:21", "Filename-Signal", 73},
        {"2023-08-14 14.30.21 20220101", "2022-01-01 00:00:00", "Filename", 70},
        {"2022-01-01 and 2023-08-14 14.30.21", "2023-08-14 14:30:21", "Filename", 70},
    });
    EXPECT_EQ(filenameCandidate("1691234567 2023-08-14 at 2.30.21 PM", kNow)->source, "Filename-UnixTS");
    EXPECT_EQ(filenameCandidate("20230814 1691234567", kNow)->source, "Filename-UnixTS");
}

TEST(FilenameDates, OnlyTheFirstMatchOfAShapeCounts) {
    EXPECT_FALSE(filenameCandidate("20230231 20230301", kNow).has_value());
    EXPECT_FALSE(filenameCandidate("1999999999 1691234567", kNow).has_value());
}

TEST(FilenameDates, RefusesDatesThatDoNotExist) {
    for (std::string_view stem : {"", "IMG_4821", "20230231", "2023-02-29", "2023-04-31", "1899-01-01", "2100-13-01",
                                  "18991231", "IMG-20231399-WA0001", "2023-00-10", "2023-8-14"})
        EXPECT_FALSE(filenameCandidate(stem, kNow).has_value()) << stem;
}

TEST(FilenameDates, BytesThatAreNotUtf8DoNotHideADate) {
    expectDates({{"\xff\xfe 2023-08-14 14.30.21 \xc3", "2023-08-14 14:30:21", "Filename", 70}});
    EXPECT_FALSE(filenameCandidate("\xff\xfe\xc3", kNow).has_value());
}

TEST(FilenameDates, ATimeThatTheClockSkippedLeavesTheDate) {
    const testing::ScopedTimeZone zone("America/Los_Angeles");
    expectDates({
        {"20230312_023000", "2023-03-12 00:00:00", "Filename", 60},
        {"2023-03-12 02.30.00", "2023-03-12 00:00:00", "Filename", 60},
        {"2023-03-12 at 2.30.00 AM", "2023-03-12 00:00:00", "Filename", 60},
        {"20230312_033000", "2023-03-12 03:30:00", "Filename", 70},
    });
}

TEST(FilenameDates, ATimeThatTheClockShowedTwiceIsTheFirst) {
    const testing::ScopedTimeZone zone("America/Los_Angeles");
    const Instant first = std::chrono::sys_days(std::chrono::year(2023) / 11 / 5) + 8h + 30min;
    EXPECT_EQ(filenameCandidate("20231105_013000", kNow), (DateCandidate{first, "Filename", 70}));
}

TEST(FilenameDates, ATimeIsLocal) {
    const Instant utc = std::chrono::sys_days(std::chrono::year(2023) / 8 / 14) + 14h + 30min + 21s;
    const testing::ScopedTimeZone zone("Asia/Kolkata");
    EXPECT_EQ(filenameCandidate("20230814_143021", kNow)->date, utc - 5h - 30min);
}

}  // namespace
}  // namespace vellomar
