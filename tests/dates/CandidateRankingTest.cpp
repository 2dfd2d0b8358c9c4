#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/CandidateRanking.h"
#include "dates/LocalInstant.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::local;

using Candidates = std::vector<DateCandidate>;

Instant shotThatDay() {
    return local(2023, 8, 14, 14, 30, 21);
}

Instant now() {
    return local(2026, 5, 28, 12);
}

Candidates possible(Candidates candidates) {
    dropImpossibleDates(candidates, now());
    return candidates;
}

Candidates confirmed(Candidates candidates) {
    confirmByFilename(candidates);
    return candidates;
}

Candidates suspected(Candidates candidates) {
    suspectFileDates(candidates);
    return candidates;
}

TEST(DropImpossibleDates, TheEpochAndWhatCameBeforeIsDropped) {
    EXPECT_THAT(possible({{Instant(), "a", 1}, {Instant() - 1s, "b", 1}, {local(1905, 3, 15, 12), "c", 1}}), IsEmpty());
    EXPECT_EQ(possible({{Instant() + 1s, "a", 1}}).size(), 1U);
    EXPECT_EQ(possible({{local(1971, 1, 1), "a", 1}}).size(), 1U);
}

TEST(DropImpossibleDates, ADayFromNowAndWhatComesAfterIsDropped) {
    EXPECT_THAT(possible({{now() + 24h, "a", 1}, {now() + 48h, "b", 1}}), IsEmpty());
    EXPECT_EQ(possible({{now() + 24h - 1us, "a", 1}}).size(), 1U);
}

TEST(DropImpossibleDates, TheOrderIsKept) {
    const DateCandidate first{shotThatDay(), "a", 1};
    const DateCandidate second{shotThatDay(), "b", 2};
    EXPECT_THAT(possible({first, {Instant(), "x", 100}, second}), ElementsAre(first, second));
}

TEST(ConfirmByFilename, ANameWithinADayConfirms) {
    const DateCandidate name{shotThatDay(), "Filename", 70};
    for (const auto distance : {0us, 24h - 1us, -(24h - 1us)}) {
        EXPECT_THAT(confirmed({{shotThatDay() + distance, "EXIF DateTimeOriginal", 95}, name}),
                    ElementsAre(DateCandidate{shotThatDay() + distance, "EXIF DateTimeOriginal+confirmed", 100}, name));
    }
}

TEST(ConfirmByFilename, ANameADayAwayDoesNot) {
    for (const auto distance : {24h, -24h}) {
        const Candidates candidates = {{shotThatDay() + distance, "EXIF DateTimeOriginal", 95},
                                       {shotThatDay(), "Filename", 70}};
        EXPECT_EQ(confirmed(candidates), candidates);
    }
}

TEST(ConfirmByFilename, EveryFilenameLabelConfirms) {
    for (const auto* label :
         {"Filename", "Filename-UnixTS", "Filename-Screenshot", "Filename-WhatsApp", "Filename-Signal"}) {
        EXPECT_EQ(confirmed({{shotThatDay(), "XMP Sidecar", 97}, {shotThatDay(), label, 70}}).front().source,
                  "XMP Sidecar+confirmed");
    }
    EXPECT_EQ(confirmed({{shotThatDay(), "XMP Sidecar", 97}, {shotThatDay(), "FS CreationDate", 15}}).front().source,
              "XMP Sidecar");
}

TEST(ConfirmByFilename, TheScoreRisesByEightUpToAHundred) {
    struct Case {
        int before;
        int after;
    };
    for (const auto& [before, after] : {Case{90, 98}, Case{92, 100}, Case{93, 100}, Case{97, 100}, Case{100, 100}}) {
        EXPECT_EQ(
            confirmed({{shotThatDay(), "ExifTool CreateDate", before}, {shotThatDay(), "Filename", 70}}).front().score,
            after)
            << before;
    }
}

TEST(ConfirmByFilename, BelowNinetyNothingIsConfirmed) {
    const Candidates candidates = {{shotThatDay(), "ExifTool XMP:CreateDate", 89}, {shotThatDay(), "Filename", 70}};
    EXPECT_EQ(confirmed(candidates), candidates);
}

TEST(ConfirmByFilename, OnlyTheFirstStrongSourceIsRaised) {
    EXPECT_THAT(confirmed({{shotThatDay(), "XMP Sidecar", 97},
                           {shotThatDay(), "ExifTool DateTimeOriginal", 100},
                           {shotThatDay(), "EXIF DateTimeOriginal", 95},
                           {shotThatDay(), "Filename", 70}}),
                ElementsAre(DateCandidate{shotThatDay(), "XMP Sidecar+confirmed", 100},
                            DateCandidate{shotThatDay(), "ExifTool DateTimeOriginal", 100},
                            DateCandidate{shotThatDay(), "EXIF DateTimeOriginal", 95},
                            DateCandidate{shotThatDay(), "Filename", 70}));
}

TEST(ConfirmByFilename, IfTheFirstStrongOneDisagreesNoOtherIsRaised) {
    const Candidates candidates = {{shotThatDay() - 48h, "XMP Sidecar", 97},
                                   {shotThatDay(), "EXIF DateTimeOriginal", 95},
                                   {shotThatDay(), "Filename", 70}};
    EXPECT_EQ(confirmed(candidates), candidates);
}

TEST(ConfirmByFilename, EveryCandidateOfThatSourceIsRaised) {
    EXPECT_THAT(
        confirmed({{shotThatDay(), "Same", 95}, {shotThatDay() - 48h, "Same", 50}, {shotThatDay(), "Filename", 70}}),
        ElementsAre(DateCandidate{shotThatDay(), "Same+confirmed", 100},
                    DateCandidate{shotThatDay() - 48h, "Same+confirmed", 58},
                    DateCandidate{shotThatDay(), "Filename", 70}));
}

TEST(ConfirmByFilename, WithoutANameOrAStrongOneNothingChanges) {
    for (const Candidates& candidates :
         {Candidates{}, Candidates{{shotThatDay(), "XMP Sidecar", 97}}, Candidates{{shotThatDay(), "Filename", 70}}})
        EXPECT_EQ(confirmed(candidates), candidates);
}

TEST(SuspectFileDates, FileDatesTwoYearsFromTheFolderAreSuspect) {
    const DateCandidate folder{local(2012, 6, 15, 12), "Folder-derived Y", 35};
    for (const int year : {2010, 2014, 2021}) {
        SCOPED_TRACE(year);
        EXPECT_THAT(
            suspected(
                {folder, {local(year, 6, 1), "FS CreationDate", 15}, {local(year, 6, 1), "FS ModificationDate", 20}}),
            ElementsAre(folder, DateCandidate{local(year, 6, 1), "FS CreationDate+suspect", 10},
                        DateCandidate{local(year, 6, 1), "FS ModificationDate+suspect", 10}));
    }
}

TEST(SuspectFileDates, AYearMoreOrLessIsNoMatter) {
    for (const auto date : {local(2011, 1, 1), local(2012, 3, 1), local(2013, 12, 31, 23, 59, 59)}) {
        const Candidates candidates = {{local(2012, 6, 15, 12), "Folder-derived Y", 35},
                                       {date, "FS ModificationDate", 20}};
        EXPECT_EQ(suspected(candidates), candidates);
    }
}

TEST(SuspectFileDates, AScoreOfFiveStaysFive) {
    EXPECT_THAT(
        suspected({{local(2012, 8, 15, 12), "Folder-derived Y/M", 40}, {local(2021, 1, 1), "FS CreationDate", 5}}),
        ElementsAre(DateCandidate{local(2012, 8, 15, 12), "Folder-derived Y/M", 40},
                    DateCandidate{local(2021, 1, 1), "FS CreationDate+suspect", 5}));
}

TEST(SuspectFileDates, OnlyFileDatesAreSuspected) {
    const Candidates candidates = {{local(2021, 1, 1), "EXIF DateTimeOriginal", 95},
                                   {local(2021, 1, 1), "ExifTool FileModifyDate", 20},
                                   {local(2021, 1, 1), "Filename", 70},
                                   {local(2012, 6, 15, 12), "Folder-derived Y", 35}};
    EXPECT_EQ(suspected(candidates), candidates);
}

TEST(SuspectFileDates, WithoutAFolderYearNothingChanges) {
    const Candidates candidates = {{local(2021, 1, 1), "FS CreationDate", 15},
                                   {local(2012, 1, 1), "FS ModificationDate", 20}};
    EXPECT_EQ(suspected(candidates), candidates);
}

TEST(BestOf, TheHighestScoreWinsAndTheFirstOfEquals) {
    const Candidates candidates = {{shotThatDay() - 5h, "first", 20},
                                   {shotThatDay(), "best", 70},
                                   {shotThatDay() - 9h, "as good", 70},
                                   {shotThatDay(), "last", 5}};
    EXPECT_EQ(bestOf(candidates, now()), candidates[1]);
}

TEST(BestOf, WithoutCandidatesItIsNow) {
    EXPECT_EQ(bestOf({}, now()), (DateCandidate{now(), "Fallback Now", 10}));
}

TEST(CandidatesText, ListsByScoreAndEqualsInTheirOrder) {
    const Candidates candidates = {{local(2023, 1, 2, 3, 4, 5), "b", 20},
                                   {local(2023, 1, 1), "a", 70},
                                   {local(2022, 1, 1), "c", 20},
                                   {local(2021, 1, 1), "d", 5}};
    EXPECT_EQ(candidatesText(candidates[1], candidates),
              "chosen=a(70); candidates=[a(70)=2023-01-01 00:00:00; b(20)=2023-01-02 03:04:05; "
              "c(20)=2022-01-01 00:00:00; d(5)=2021-01-01 00:00:00]");
}

TEST(CandidatesText, AnEmptyListIsTwoBrackets) {
    EXPECT_EQ(candidatesText({now(), "Fallback Now", 10}, {}), "chosen=Fallback Now(10); candidates=[]");
}

}  // namespace
}  // namespace vellomar
