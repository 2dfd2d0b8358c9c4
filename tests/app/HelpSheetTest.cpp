// The manual and the list of releases, used as a user does.
#include <QClipboard>
#include <QGuiApplication>

#include <gmock/gmock.h>

#include "app/LayoutFixture.h"
#include "app/RunningApp.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::colourOf;

class HelpSheetTest : public ::testing::Test {
protected:
    HelpSheetTest() { user.start(); }

    [[nodiscard]] testing::WindowDriver& window() { return user.window(); }

    // The row of a topic, as it stands in the list.
    [[nodiscard]] QQuickItem* topic(const QString& title) {
        auto* const interface = window().accessible(QAccessible::ListItem, title);
        return interface == nullptr ? nullptr : qobject_cast<QQuickItem*>(interface->object());
    }

    [[nodiscard]] QString read() { return window().itemNamed("readTitle").property("text").toString(); }

    testing::RunningApp user;
};

TEST_F(HelpSheetTest, OpensFromTheHeaderAndByF1) {
    user.press("Open help");
    EXPECT_TRUE(user.isOpen("VELLOMAR HELP"));
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("VELLOMAR HELP"));
    window().press(Qt::Key_F1);
    EXPECT_TRUE(user.isOpen("VELLOMAR HELP"));
    EXPECT_TRUE(window().shows("SUPPORT VELLOMAR"));
    EXPECT_TRUE(window().shows("If Vellomar saves you time, a coffee keeps development going."));
    EXPECT_EQ(window().focusedName(), "Search help…");
    user.press("✕");
    EXPECT_FALSE(user.isOpen("VELLOMAR HELP"));
}

TEST_F(HelpSheetTest, ATopicIsChosenByAClick) {
    user.press("Open help");
    EXPECT_EQ(read(), "ExifTool — Strongly Recommended");
    auto* const row = topic("Dry Run");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(colourOf(*row->findChild<QQuickItem*>("helpTopicTitle")), QColor("#909088"));
    window().click(*row);
    EXPECT_EQ(read(), "Dry Run");
    EXPECT_EQ(colourOf(*row), QColor("#111100"));
    EXPECT_EQ(colourOf(*row->findChild<QQuickItem*>("helpTopicTitle")), QColor("#e8e8e0"));
    EXPECT_EQ(window().itemNamed("helpColumn").width(), 210);
    auto& column = window().itemNamed("helpColumn");
    EXPECT_EQ(colourOf(column), QColor("#0d0d0d"));
    EXPECT_EQ(colourOf(*column.findChild<QQuickItem*>("fieldBox")), QColor("#111111"));
}

TEST_F(HelpSheetTest, SearchingByKeyboardAlone) {
    user.press("Open help");
    user.type("Search help…", "GPS");
    EXPECT_EQ(user.app().content().help()->count(), 4);
    window().press(Qt::Key_Down);
    EXPECT_EQ(read(), "GPS & Location");
    window().press(Qt::Key_Up);
    EXPECT_EQ(read(), "ExifTool — Strongly Recommended");
    user.type("Search help…", "No Such <b>Words</b>");
    EXPECT_TRUE(window().shows("No results for \"No Such <b>Words</b>\""));
    EXPECT_FALSE(window().shows("GPS & Location"));
    EXPECT_TRUE(window().itemNamed("noResults").isVisible());
}

TEST_F(HelpSheetTest, TheTextIsSelectedAndCopiedByKeys) {
    user.press("Open help");
    window().click(*topic("Dry Run"));
    auto& content = window().itemNamed("readContent");
    EXPECT_EQ(content.property("color").value<QColor>(), QColor("#c0c0b8"));
    content.forceActiveFocus(Qt::TabFocusReason);
    window().press(Qt::Key_A, Qt::ControlModifier);
    window().press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("A dry run simulates the entire sort"));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith("in Excel or Numbers."));
}

TEST_F(HelpSheetTest, TheActionOpensItsPage) {
    user.press("Open help");
    EXPECT_TRUE(user.canPress("Open exiftool.org"));
    user.press("Open exiftool.org");
    EXPECT_THAT(user.links().asked, ::testing::ElementsAre(std::vector<std::string>{"https://exiftool.org"}));
    window().click(*topic("Dry Run"));
    EXPECT_FALSE(user.canPress("Open exiftool.org"));
    // There is no page to support the maker at, nor a site, unless the program is built with one.
    EXPECT_FALSE(window().itemNamed("supportButton").isVisible());
    EXPECT_FALSE(window().itemNamed("siteLink").isVisible());
}

TEST_F(HelpSheetTest, TheVersionOpensTheReleases) {
    user.press("v4.6");
    ASSERT_TRUE(user.isOpen("CHANGELOG"));
    EXPECT_TRUE(window().shows("History of changes across all versions."));
    EXPECT_TRUE(window().shows("Tap the version number in the header to open this window."));
    EXPECT_TRUE(
        window().shows("Help tooltips (? buttons) now open correctly on click — replaced clipped overlay with "
                       "native popover"));
    for (QQuickItem* const version : window().itemsNamed("releaseVersion")) {
        const bool isCurrent = version->property("text") == "v4.6";
        EXPECT_EQ(colourOf(*version), QColor(isCurrent ? "#f5c518" : "#e8e8e0"));
        auto* const badge = version->parentItem()->findChild<QQuickItem*>("currentBadge");
        ASSERT_NE(badge, nullptr);
        EXPECT_EQ(badge->isVisible(), isCurrent);
    }
    user.press("CLOSE");
    EXPECT_FALSE(user.isOpen("CHANGELOG"));
}

TEST_F(HelpSheetTest, TheReleasesScrollByKeysToTheFirst) {
    user.press("v4.6");
    window().press(Qt::Key_End);
    ASSERT_TRUE(testing::spinUntil([&] { return window().shows("v1.0"); }));
    EXPECT_TRUE(window().shows("Dry run, CSV export, undo, duplicate detection, dark theme with yellow accent"));
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("CHANGELOG"));
}

class HelpLayoutTest : public testing::LayoutTest {};

TEST_P(HelpLayoutTest, OfEveryTopic) {
    user.start();
    user.press("Open help");
    auto& help = *user.app().content().help();
    for (int row = 0; row < help.count(); ++row) {
        help.select(row);
        look("help-" + std::to_string(row + 1));
    }
    help.setSearchText("nothing of the kind");
    look("help-nothing");
}

TEST_P(HelpLayoutTest, OfTheReleases) {
    user.start();
    user.press("v4.6");
    look("changelog");
    window().press(Qt::Key_End);
    look("changelog-end");
}

INSTANTIATE_TEST_SUITE_P(Sizes, HelpLayoutTest, ::testing::ValuesIn(testing::kWindowSizes), testing::widthOf);

}  // namespace
}  // namespace vellomar
