#include <limits>

#include <gmock/gmock.h>

#include "tools/DateShift.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

TEST(DateShift, DaysAreTwentyFourHoursEach) {
    EXPECT_EQ((DateShift{2, 3}.totalHours()), 51);
    EXPECT_EQ((DateShift{-1, 3}.totalHours()), -21);
    EXPECT_EQ((DateShift{1, -24}.totalHours()), 0);
}

TEST(DateShift, NoAmountIsTooLarge) {
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    EXPECT_EQ((DateShift{kMost, kMost}.totalHours()), 25LL * kMost);
    EXPECT_EQ((DateShift{kLeast, kLeast}.totalHours()), 25LL * kLeast);
    EXPECT_EQ(shiftDescription({kMost, kMost}), "+2236962132 days 7 hours");
    EXPECT_EQ(shiftArguments({kLeast, kLeast}, "/a.jpg")->front(), "-AllDates-=0:0:0 53687091200:0:0");
}

TEST(DateShift, IsDescribedInDaysAndHoursWithoutTheSignOfAShiftBack) {
    struct Case {
        DateShift shift;
        const char* text;
    };
    constexpr Case kCases[] = {
        {{0, 0}, "No change"},        {{1, -24}, "No change"},    {{-1, 24}, "No change"},
        {{0, 1}, "+1 hour"},          {{0, 5}, "+5 hours"},       {{1, 0}, "+1 day"},
        {{2, 0}, "+2 days"},          {{1, 3}, "+1 day 3 hours"}, {{2, 1}, "+2 days 1 hour"},
        {{0, 30}, "+1 day 6 hours"},  {{1, -1}, "+23 hours"},     {{0, -1}, "1 hour"},
        {{0, -5}, "5 hours"},         {{-1, 0}, "1 day"},         {{-1, -1}, "1 day 1 hour"},
        {{-2, -3}, "2 days 3 hours"}, {{-1, 3}, "21 hours"},
    };
    for (const auto& [shift, text] : kCases)
        EXPECT_EQ(shiftDescription(shift), text) << shift.days << " days " << shift.hours << " hours";
}

TEST(DateShift, AsksExifToolForHoursAlone) {
    EXPECT_THAT(*shiftArguments({0, -5}, "/in/a.jpg"),
                ElementsAre("-AllDates-=0:0:0 5:0:0", "-overwrite_original", "/in/a.jpg"));
    EXPECT_THAT(*shiftArguments({1, 6}, "/in/a.jpg"),
                ElementsAre("-AllDates+=0:0:0 30:0:0", "-overwrite_original", "/in/a.jpg"));
}

TEST(DateShift, HandsThePathOnByteForByte) {
    for (const std::string path : {"/in/-rf.jpg", "/in/@list.jpg", "/in/a \"b\" 'c'\n.jpg", "/in/\xff\xfe.jpg"})
        EXPECT_EQ(shiftArguments({0, 1}, path)->at(2), path);
}

TEST(DateShift, ByNothingAsksExifToolForNothing) {
    EXPECT_FALSE(shiftArguments({0, 0}, "/in/a.jpg"));
    EXPECT_FALSE(shiftArguments({1, -24}, "/in/a.jpg"));
}

TEST(DateShift, TellsItsProgressByTheLastFilesName) {
    EXPECT_EQ(shiftProgress(3, 17, "/in/trip/IMG_1.jpg"), "3/17 → IMG_1.jpg");
    EXPECT_EQ(shiftProgress(1, 1, "/in/\xff.jpg"), "1/1 → \xff.jpg");
}

TEST(DateShift, TellsItsOutcomeInSingularAndPlural) {
    struct Case {
        DateShift shift;
        std::size_t files;
        const char* text;
    };
    constexpr Case kCases[] = {
        {{0, 5}, 17, "Done — shifted 17 files by +5 hours"}, {{0, 1}, 1, "Done — shifted 1 file by +1 hour"},
        {{0, -1}, 2, "Done — shifted 2 files by -1 hour"},   {{-1, -6}, 3, "Done — shifted 3 files by -30 hours"},
        {{0, 0}, 2, "Done — shifted 2 files by 0 hours"},    {{1, -24}, 1, "Done — shifted 1 file by 0 hours"},
        {{2, 0}, 0, "Done — shifted 0 files by +48 hours"},
    };
    for (const auto& [shift, files, text] : kCases)
        EXPECT_EQ(shiftOutcome(shift, files), text);
}

TEST(DateShift, StoppedTellsWhatIsShiftedAndThatTheRestIsNot) {
    EXPECT_EQ(stoppedShiftOutcome({0, -5}, 12, 300),
              "Stopped — shifted 12 of 300 files by -5 hours. No other file was changed.");
    EXPECT_EQ(stoppedShiftOutcome({0, 5}, 0, 300), "Stopped — no file was changed");
}

}  // namespace
}  // namespace vellomar
