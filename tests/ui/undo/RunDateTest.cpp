#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/undo/RunDate.h"

namespace vellomar {
namespace {

// Some versions of the tables of languages have narrow blanks where others have plain ones.
QString withPlainBlanks(QString text) {
    return text.replace(QChar(0x202F), u' ').replace(QChar(0xA0), u' ');
}

TEST(RunDate, IsTheMediumDateAndTheShortTimeOfTheLanguage) {
    const std::string runID = "2024-06-14T11:40:58";
    EXPECT_EQ(withPlainBlanks(runDateText(runID, QLocale("en_US"))), "Jun 14, 2024, 11:40 AM");
    EXPECT_EQ(withPlainBlanks(runDateText(runID, QLocale("de_DE"))), "14.06.2024, 11:40");
    EXPECT_EQ(withPlainBlanks(runDateText(runID, QLocale("fr_FR"))), "14 juin 2024, 11:40");
}

TEST(RunDate, IsTheClockThatTheRunSawEvenWhereTheZoneHasNoSuchTime) {
    EXPECT_EQ(withPlainBlanks(runDateText("2024-03-31T02:30:00", QLocale("de_DE"))), "31.03.2024, 02:30");
    EXPECT_EQ(withPlainBlanks(runDateText("2024-12-31T23:59:59", QLocale("en_US"))), "Dec 31, 2024, 11:59 PM");
}

TEST(RunDate, AnythingElseComesBackAsItStands) {
    for (const char* const runID : {"", "yesterday", "2024-06-14", "2024-06-14T11:40:58Z", "2024-02-30T11:40:58",
                                    "2024-06-14T11:40:58 ", "2024-06-14 11:40:58"})
        EXPECT_EQ(runDateText(runID, QLocale("en_US")), QString(runID));
    EXPECT_EQ(runDateText("a\xFFz", QLocale("en_US")), QString("a\uFFFDz"));
}

}  // namespace
}  // namespace vellomar
