#include <limits>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/statistics/StatRows.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

QStringList labelsOf(const StatSection& section) {
    QStringList labels;
    for (const auto& row : section.rows)
        labels += row.label;
    return labels;
}

std::vector<int> percentagesOf(const StatSection& section) {
    std::vector<int> percentages;
    for (const auto& row : section.rows)
        percentages.push_back(row.percentage);
    return percentages;
}

TEST(StatRows, SectionsHaveTheirOrderSymbolsAndColours) {
    const auto sections = statSections({});
    struct Case {
        const char* symbol;
        const char* heading;
        const char* colour;
    };
    constexpr Case kCases[] = {{"calendar", "BY YEAR", "F5C518"},
                               {"camera", "BY CAMERA", "5B9BD5"},
                               {"calendar.badge.clock", "DATE SOURCE CONFIDENCE", "3D8B5E"},
                               {"doc", "FILE TYPES", "909088"}};
    ASSERT_EQ(sections.size(), std::size(kCases));
    for (std::size_t i = 0; i < sections.size(); ++i) {
        EXPECT_EQ(sections[i].symbol, kCases[i].symbol);
        EXPECT_EQ(sections[i].heading, kCases[i].heading);
        EXPECT_EQ(sections[i].barColour, hexColour(kCases[i].colour));
        EXPECT_TRUE(sections[i].rows.empty());
    }
}

TEST(StatRows, YearsComeInTheirOrder) {
    LibraryStats stats;
    stats.totalFiles = 100;
    stats.byYear = {{"2024", 1}, {"1999", 5}, {"2010", 90}};
    EXPECT_EQ(labelsOf(statSections(stats)[0]), QStringList({"1999", "2010", "2024"}));
}

TEST(StatRows, TheOthersComeByTheirCountsAndEqualOnesByTheirNames) {
    LibraryStats stats;
    stats.totalFiles = 100;
    stats.byCamera = {{"X100V", 7}, {"D850", 7}, {"Pixel 7", 20}, {"A7", 1}, {"a7", 7}};
    stats.dateSourceBreakdown = {{"Filename", 3}, {"EXIF", 9}, {"FS", 3}};
    stats.byExtension = {{"jpg", 9}, {"arw", 9}, {"mov", 10}};
    const auto sections = statSections(stats);
    EXPECT_EQ(labelsOf(sections[1]), QStringList({"Pixel 7", "D850", "X100V", "a7", "A7"}));
    EXPECT_EQ(labelsOf(sections[2]), QStringList({"EXIF", "FS", "Filename"}));
    EXPECT_EQ(labelsOf(sections[3]), QStringList({".mov", ".arw", ".jpg"}));
}

TEST(StatRows, PercentagesAreWholeNumbersOfAllFiles) {
    LibraryStats stats;
    stats.totalFiles = 300;
    stats.byYear = {{"2000", 1}, {"2001", 2}, {"2002", 3}, {"2003", 299}, {"2004", 300}, {"2005", 5}};
    EXPECT_THAT(percentagesOf(statSections(stats)[0]), ElementsAre(0, 0, 1, 99, 100, 1));
}

TEST(StatRows, OfNoFilesEachPercentageIsZero) {
    LibraryStats stats;
    stats.byYear = {{"2000", 0}, {"2001", 12}};
    EXPECT_THAT(percentagesOf(statSections(stats)[0]), ElementsAre(0, 0));
}

TEST(StatRows, LargeCountsDoNotOverflow) {
    LibraryStats stats;
    stats.totalFiles = std::numeric_limits<int>::max();
    stats.byYear = {{"2000", std::numeric_limits<int>::max()}};
    EXPECT_THAT(percentagesOf(statSections(stats)[0]), ElementsAre(100));
}

TEST(StatRows, ABarIsInProportionToTheLargestOfItsSection) {
    LibraryStats stats;
    stats.totalFiles = 1000;
    stats.byYear = {{"2000", 10}, {"2001", 40}, {"2002", 20}};
    stats.byCamera = {{"A7", 4}, {"none", 0}};
    const auto sections = statSections(stats);
    EXPECT_DOUBLE_EQ(sections[0].rows[0].share, 0.25);
    EXPECT_DOUBLE_EQ(sections[0].rows[1].share, 1);
    EXPECT_DOUBLE_EQ(sections[0].rows[2].share, 0.5);
    EXPECT_DOUBLE_EQ(sections[1].rows[0].share, 1);
    EXPECT_DOUBLE_EQ(sections[1].rows[1].share, 0);
    stats.byYear = {{"2000", 0}};
    EXPECT_DOUBLE_EQ(statSections(stats)[0].rows[0].share, 0) << "nothing is divided by nothing";
}

TEST(StatRows, NamesAreForReading) {
    LibraryStats stats;
    stats.totalFiles = 1;
    stats.byCamera = {{"Odd\n\xff", 1}};
    EXPECT_EQ(labelsOf(statSections(stats)[1]), QStringList(QString("Odd\u240A\uFFFD")));
}

}  // namespace
}  // namespace vellomar
