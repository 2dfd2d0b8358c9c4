#include <QSignalSpy>
#include <array>

#include <gmock/gmock.h>

#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"
#include "ui/QtPrinters.h"
#include "ui/options/NamingChoice.h"
#include "ui/options/NamingStyles.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

class NamingChoiceTest : public ::testing::Test {
protected:
    [[nodiscard]] Options kept() const { return buildOptions(*settings); }

    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    NamingChoice choice{*settings};
};

struct ExpectedStyle {
    NamingStyle style;
    const char* label;
    const char* example;
    const char* description;
};

constexpr std::array kStyles = {
    ExpectedStyle{NamingStyle::original, "Original", "IMG_4821.jpg",
                  "Keeps original filenames. Folders: year/month/event."},
    ExpectedStyle{NamingStyle::recommended, "Recommended", "2025-06-14_143052_IMG_4821.jpg",
                  "Adds date prefix to filename. Month folder is human-readable."},
    ExpectedStyle{NamingStyle::cleanDate, "Clean date", "2025-06-14_IMG_4821.jpg",
                  "Renames to timestamp only. Month folder spelled out."},
    ExpectedStyle{NamingStyle::archival, "Archival", "20250614T143052_iPhone14Pro_IMG_4821.jpg",
                  "Flat date folders, no event nesting. Best for Lightroom."},
    ExpectedStyle{NamingStyle::custom, "Custom", "2024/06 - June/Vacation/2024-06-14_143021_IMG_4821.jpg",
                  "Build your own format using tokens like {YYYY}, {Month}, {original}."},
};

TEST_F(NamingChoiceTest, OffersEveryStyleWithItsWords) {
    ASSERT_EQ(choice.labels().size(), static_cast<qsizetype>(kStyles.size()));
    for (std::size_t i = 0; i < kStyles.size(); ++i) {
        const auto& expected = kStyles.at(i);
        SCOPED_TRACE(expected.label);
        const auto place = static_cast<int>(i);
        choice.choose(place);
        EXPECT_EQ(kept().namingStyle, expected.style);
        EXPECT_EQ(choice.chosen(), place);
        EXPECT_EQ(choice.labels()[place], expected.label);
        EXPECT_EQ(namingStyleLabel(expected.style), expected.label);
        EXPECT_EQ(choice.example(), QString(expected.example));
        EXPECT_EQ(choice.description(), expected.description);
        EXPECT_EQ(choice.isCustom(), expected.style == NamingStyle::custom);
    }
}

TEST_F(NamingChoiceTest, BeginsWithTheRecommendedStyle) {
    EXPECT_EQ(choice.chosen(), 1);
}

TEST_F(NamingChoiceTest, ANumberThatIsNoStyleChangesNothing) {
    for (const int place : {-1, 5}) {
        choice.choose(place);
        EXPECT_EQ(choice.chosen(), 1) << place;
    }
}

TEST_F(NamingChoiceTest, OffersTheTokensInTheirOrder) {
    EXPECT_THAT(choice.tokens(), ElementsAre("{YYYY}", "{MM}", "{DD}", "{Month}", "{HH}", "{mm}", "{ss}", "{original}",
                                             "{Event}", "{ext}"));
}

TEST_F(NamingChoiceTest, EveryTokenHasItsSample) {
    const char* const samples[] = {"2024", "06", "14", "June", "14", "30", "21", "IMG_4821", "Vacation", "jpg"};
    const auto tokens = choice.tokens();
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        choice.setFormat(tokens[i]);
        EXPECT_EQ(choice.preview(), samples[i]) << tokens[i].toStdString();
    }
}

TEST_F(NamingChoiceTest, TheFormatIsKeptAsItIsTyped) {
    const QSignalSpy changes(&choice, &NamingChoice::changed);
    choice.setFormat(" {MM} ü ");
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(kept().customFormat, " {MM} ü ");
    EXPECT_EQ(choice.format(), " {MM} ü ");
    EXPECT_EQ(choice.preview(), " 06 ü ");
}

TEST_F(NamingChoiceTest, TokensAndDropsGoToTheEnd) {
    choice.setFormat("a");
    choice.append("{DD}");
    choice.append(" b");
    EXPECT_EQ(choice.format(), "a{DD} b");
}

TEST_F(NamingChoiceTest, AnEmptyFormatIsPreviewedAsTheFirstOne) {
    choice.setFormat("");
    EXPECT_EQ(choice.format(), "");
    EXPECT_EQ(choice.preview(), "2024/06 - June/Vacation/2024-06-14_143021_IMG_4821.jpg");
}

TEST_F(NamingChoiceTest, ResetBringsTheLongFormatBack) {
    choice.setFormat("{YYYY}");
    choice.resetFormat();
    EXPECT_EQ(choice.format(), "{YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{HH}{mm}{ss}_{original}.{ext}");
}

}  // namespace
}  // namespace vellomar
