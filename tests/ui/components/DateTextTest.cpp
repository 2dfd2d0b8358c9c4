#include <gtest/gtest.h>

#include "support/ScopedTimeZone.h"
#include "ui/QtPrinters.h"
#include "ui/components/DateText.h"

namespace vellomar {
namespace {

constexpr Instant kTime = instantFromUnixSeconds(std::int64_t{1'718'365'258});  // 2024-06-14 11:40:58 UTC

// Some versions of the tables of languages have narrow blanks where others have plain ones.
QString withoutOddBlanks(QString text) {
    return text.replace(QChar(0x202F), u' ').replace(QChar(0xA0), u' ');
}

TEST(DateText, IsTheMediumDateAndTheShortTimeOfTheLanguage) {
    EXPECT_EQ(withoutOddBlanks(utcDateText(kTime, QLocale("en_US"))), "Jun 14, 2024, 11:40 AM");
    EXPECT_EQ(withoutOddBlanks(utcDateText(kTime, QLocale("de_DE"))), "14.06.2024, 11:40");
}

TEST(DateText, IsTheLocalClockUnlessToldOtherwise) {
    const testing::ScopedTimeZone zone("America/Los_Angeles");
    EXPECT_EQ(withoutOddBlanks(dateText(kTime, QLocale("de_DE"))), "14.06.2024, 04:40");
    const Instant winter = kTime + std::chrono::hours(24 * 183);
    EXPECT_EQ(withoutOddBlanks(dateText(winter, QLocale("de_DE"))), "14.12.2024, 03:40") << "summer time is over";
    EXPECT_EQ(withoutOddBlanks(utcDateText(kTime, QLocale("de_DE"))), "14.06.2024, 11:40");
}

}  // namespace
}  // namespace vellomar
