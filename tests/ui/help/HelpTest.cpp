#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/help/Help.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class HelpTest : public ::testing::Test {
protected:
    [[nodiscard]] QStringList titles() const {
        QStringList shown;
        for (int row = 0; row < help.rowCount(); ++row)
            shown << help.index(row).data(Help::titleRole).toString();
        return shown;
    }

    testing::RecordingLinks links;
    Help help{links, {"https://example.org/coffee", "https://www.example.org/", "https://exiftool.org"}};
};

TEST_F(HelpTest, AllTopicsAreListedAndTheFirstIsRead) {
    EXPECT_EQ(help.count(), 18);
    EXPECT_EQ(help.title(), "ExifTool — Strongly Recommended");
    EXPECT_EQ(help.icon(), "wrench.and.screwdriver");
    EXPECT_EQ(help.shownRow(), 0);
    EXPECT_TRUE(help.index(0).data(Help::isShownRole).toBool());
    EXPECT_FALSE(help.index(1).data(Help::isShownRole).toBool());
    EXPECT_EQ(help.index(1).data(Help::iconRole), "eye");
}

TEST_F(HelpTest, ASearchLeavesWhatHoldsTheTextInAnyCase) {
    for (const char* text : {"gps", "GPS", "Gps"}) {
        help.setSearchText(text);
        EXPECT_THAT(titles(), Contains(QString("GPS & Location")));
        EXPECT_THAT(titles(), Contains(QString("Privacy & Metadata Stripping")));
        EXPECT_EQ(help.count(), 4) << text;
        EXPECT_EQ(help.title(), titles().first());
    }
    help.setSearchText("");
    EXPECT_EQ(help.count(), 18);
}

TEST_F(HelpTest, WhatWasChosenIsReadWhateverIsSearched) {
    help.select(1);
    EXPECT_EQ(help.title(), "Dry Run");
    EXPECT_TRUE(help.index(1).data(Help::isShownRole).toBool());
    help.setSearchText("perceptual");
    EXPECT_FALSE(titles().contains("Dry Run"));
    EXPECT_EQ(help.title(), "Dry Run");
    EXPECT_EQ(help.shownRow(), -1);
    help.select(0);
    EXPECT_EQ(help.title(), titles().first());
}

TEST_F(HelpTest, NothingFoundIsNothingToRead) {
    help.select(1);
    help.setSearchText("no such words");
    EXPECT_EQ(help.count(), 0);
    EXPECT_FALSE(help.hasTopic());
    EXPECT_EQ(help.title(), "");
    EXPECT_EQ(help.actionLabel(), "");
    help.setSearchText("");
    EXPECT_EQ(help.title(), "Dry Run");
}

TEST_F(HelpTest, ArrowsGoFromTopicToTopicWithinTheList) {
    help.selectPrevious();
    EXPECT_EQ(help.shownRow(), 0);
    help.selectNext();
    help.selectNext();
    EXPECT_EQ(help.shownRow(), 2);
    help.selectPrevious();
    EXPECT_EQ(help.shownRow(), 1);
    help.select(17);
    help.selectNext();
    EXPECT_EQ(help.shownRow(), 17);
    help.select(18);
    help.select(-1);
    EXPECT_EQ(help.shownRow(), 17);
}

TEST_F(HelpTest, OpensAfresh) {
    help.select(3);
    help.setSearchText("raw");
    EXPECT_FALSE(help.isOpen());
    help.open();
    EXPECT_TRUE(help.isOpen());
    EXPECT_EQ(help.searchText(), "");
    EXPECT_EQ(help.shownRow(), 0);
    help.dismiss();
    EXPECT_FALSE(help.isOpen());
}

TEST_F(HelpTest, LinksAreOpenedWhereThereAreSome) {
    help.openAction();
    help.openSupportPage();
    help.openMakerSite();
    EXPECT_THAT(links.asked, ElementsAre(std::vector<std::string>{"https://exiftool.org"},
                                         std::vector<std::string>{"https://example.org/coffee"},
                                         std::vector<std::string>{"https://www.example.org/"}));
    EXPECT_EQ(help.makerSite(), "www.example.org");
    help.select(1);
    help.openAction();
    EXPECT_EQ(links.asked.size(), 3U);
}

TEST_F(HelpTest, AnEmptyAddressLeadsNowhere) {
    Help without(links, {});
    EXPECT_EQ(without.actionLabel(), "");
    EXPECT_FALSE(without.hasSupportPage());
    EXPECT_EQ(without.makerSite(), "");
    without.openAction();
    without.openSupportPage();
    without.openMakerSite();
    EXPECT_TRUE(links.asked.empty());
}

}  // namespace
}  // namespace vellomar
