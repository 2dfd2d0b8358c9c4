#include <string>

#include <gtest/gtest.h>

#include "dates/FolderDates.h"
#include "dates/LocalInstant.h"

namespace vellomar {
namespace {

Instant in2026() {
    return testing::local(2026, 5, 28, 12);
}

struct FolderCase {
    std::string_view path;
    int year;
    std::optional<int> month;
};

template <std::size_t count>
void expectYears(const FolderCase (&cases)[count], bool parseMonthWords = true) {
    for (const auto& [path, year, month] : cases) {
        SCOPED_TRACE(path);
        EXPECT_EQ(folderYearMonth(path, parseMonthWords, in2026()), (FolderYearMonth{year, month}));
    }
}

TEST(FolderDates, AYearAndAMonthInOneFolder) {
    expectYears({
        {"2012-08", 2012, 8},
        {"2012_08", 2012, 8},
        {"2012.08", 2012, 8},
        {"2012 08", 2012, 8},
        {"1905-12", 1905, 12},
        {"Trips/2012-08/Day 1", 2012, 8},
        {"2012-13", 2012, std::nullopt},
        {"2012-8", 2012, std::nullopt},
        {"2012-08-14", 2012, std::nullopt},
        {"x2012-08", 2012, std::nullopt},
    });
}

TEST(FolderDates, AMonthFolderInAYearFolder) {
    expectYears({
        {"2012/08", 2012, 8},
        {"2012/8", 2012, 8},
        {"2012/12", 2012, 12},
        {"2012\\08", 2012, 8},
        {"Trips/2012/08", 2012, 8},
        {"2012/8/3", 2012, 8},
        {"1985/06", 1985, 6},
        {"2012/2013/08", 2013, 8},
        {"2012/13", 2012, std::nullopt},
        {"2012/0", 2012, std::nullopt},
        {"2012/x/08", 2012, std::nullopt},
    });
}

TEST(FolderDates, AMonthWordWithAYear) {
    expectYears({
        {"Aug 2019", 2019, 8},
        {"Enero 2014", 2014, 1},
        {"2014 ENERO", 2014, 1},
        {"Marzo 1905", 1905, 3},
        {"Old/Aug 2019", 2019, 8},
        {"marina 2015", 2015, 3},
        {"generic 2015", 2015, 1},
        {"dictionary 2015", 2015, 12},
        {"May 2099", 2099, 5},
    });
}

TEST(FolderDates, EveryMonthWordIsKnown) {
    struct Month {
        int number;
        std::vector<std::string> words;
    };
    const Month months[] = {
        {1, {"january", "jan", "enero", "ene"}},
        {2, {"february", "feb", "febrero"}},
        {3, {"march", "mar", "marzo"}},
        {4, {"april", "apr", "abril", "abr"}},
        {5, {"may", "mayo"}},
        {6, {"june", "jun", "junio"}},
        {7, {"july", "jul", "julio"}},
        {8, {"august", "aug", "agosto", "ago"}},
        {9, {"september", "sep", "sept", "septiembre", "setiembre"}},
        {10, {"october", "oct", "octubre"}},
        {11, {"november", "nov", "noviembre"}},
        {12, {"december", "dec", "diciembre", "dic"}},
    };
    int words = 0;
    for (const auto& [number, names] : months)
        for (const auto& word : names) {
            SCOPED_TRACE(word);
            EXPECT_EQ(folderYearMonth(word + " 2019", true, in2026()), (FolderYearMonth{2019, number}));
            EXPECT_EQ(folderYearMonth(word + " 19", true, in2026()), (FolderYearMonth{2019, number}));
            ++words;
        }
    EXPECT_EQ(words, 41);
}

TEST(FolderDates, OfTwoMonthsTheEarlierWins) {
    expectYears({{"December to Feb 2019", 2019, 2}, {"oct-sep 2019", 2019, 9}});
}

TEST(FolderDates, AMonthWordCountsOnlyInTheFolderOfItsYear) {
    expectYears({{"2012/08 - August", 2012, std::nullopt}, {"August/2012", 2012, std::nullopt}});
}

TEST(FolderDates, AYearAlone) {
    expectYears({
        {"Fotos Vacaciones 2012", 2012, std::nullopt},
        {"2012", 2012, std::nullopt},
        {"1990", 1990, std::nullopt},
        {"2026", 2026, std::nullopt},
        {"IMG_2012345", 2012, std::nullopt},
        {"Class of 1985/2003", 2003, std::nullopt},
        {"2099 plans/2010", 2010, std::nullopt},
    });
}

TEST(FolderDates, AYearAloneIsBetweenNineteenNinetyAndNow) {
    for (std::string_view path : {"1985", "Class of 1985", "1989", "2027", "2099 plans", "1985 and 2012"})
        EXPECT_EQ(folderYearMonth(path, true, in2026()), std::nullopt) << path;
}

TEST(FolderDates, TwoDigitsStandingFreeAreAYear) {
    expectYears({
        {"Hawaii 85", 1985, std::nullopt},
        {"Trip 19", 2019, std::nullopt},
        {"Trip 26", 2026, std::nullopt},
        {"Trip 27", 1927, std::nullopt},
        {"Trip 12 people", 2012, std::nullopt},
        {"Day 99", 1999, std::nullopt},
        {"Day 01", 2001, std::nullopt},
        {"Aug 19", 2019, 8},
        {"AGOSTO 85", 1985, 8},
        {"August/19", 2019, std::nullopt},
        {"00/12", 2012, std::nullopt},
    });
}

TEST(FolderDates, TheCenturyTurnsWithTheCurrentYear) {
    const auto in2031 = testing::local(2031, 1, 1);
    EXPECT_EQ(folderYearMonth("Trip 27", true, in2031)->year, 2027);
    EXPECT_EQ(folderYearMonth("2031", true, in2031)->year, 2031);
    EXPECT_EQ(folderYearMonth("Trip 32", true, in2031)->year, 1932);
}

TEST(FolderDates, WithoutMonthWordsTheirFolderStillGivesItsYear) {
    expectYears(
        {{"Aug 19", 2019, std::nullopt}, {"Aug 2019", 2019, std::nullopt}, {"2012-08", 2012, 8}, {"2012/08", 2012, 8}},
        false);
    EXPECT_EQ(folderYearMonth("Marzo 1905", false, in2026()), std::nullopt);
}

TEST(FolderDates, AClearFormAnywhereBeatsADoubtfulOneNearerTheSource) {
    expectYears({
        {"Trip 99/2015", 2015, std::nullopt},
        {"2015/Aug 2019", 2019, 8},
        {"Aug 2019/2012/03", 2012, 3},
        {"2011/05/2012-08", 2012, 8},
    });
}

TEST(FolderDates, NoYearNoAnswer) {
    for (std::string_view path : {"", "/", "Wedding", "August", "Day 1", "00", "123", "Trip 100"})
        EXPECT_EQ(folderYearMonth(path, true, in2026()), std::nullopt) << path;
}

TEST(FolderDates, BytesThatAreNotUtf8DoNotHideAYear) {
    expectYears({{"\xff\xfe 2012", 2012, std::nullopt}, {"\xff AUG 2012 \xc3", 2012, 8}});
}

}  // namespace
}  // namespace vellomar
