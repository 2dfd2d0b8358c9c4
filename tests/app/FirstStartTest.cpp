// The wizard of a first start, as a new user goes through it.
#include <QFont>
#include <algorithm>
#include <string_view>

#include <gmock/gmock.h>

#include "app/FirstStart.h"
#include "settings/SettingsKeys.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::placeOf;
using testing::spinUntil;

class FirstStartTest : public testing::FirstStart {};

TEST_F(FirstStartTest, TheKeyboardAloneLeadsToFoldersAndTheTour) {
    library.makeFolder("in");
    library.makeFolder("out");
    user.startAsFound();
    ASSERT_TRUE(user.isOpen("SETUP WIZARD"));
    EXPECT_EQ(window().focusedName(), "Next →");
    EXPECT_TRUE(window().shows("Let's get your photos organised."));
    window().press(Qt::Key_Return);
    EXPECT_TRUE(window().shows("Where are your photos?"));
    EXPECT_TRUE(window().shows("Step 1 of 4"));
    EXPECT_TRUE(window().shows("2 of 5"));
    EXPECT_EQ(window().focusedName(), "Skip →");

    tabTo("ADD");
    user.chooser().answerNext({library / "in"});
    window().press(Qt::Key_Return);
    ASSERT_TRUE(spinUntil([&] { return window().shows("Sources (1)"); }));
    tabTo("Next →");
    window().press(Qt::Key_Return);
    EXPECT_TRUE(window().shows("Where should the organised photos go?"));

    tabTo("ADD");
    user.chooser().answerNext({library / "out"});
    window().press(Qt::Key_Return);
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CHANGE"); }));
    tabTo("Next →");
    window().press(Qt::Key_Return);
    EXPECT_TRUE(window().shows("Copy or move?"));
    window().press(Qt::Key_Return);
    EXPECT_TRUE(window().shows("You're ready!"));
    EXPECT_EQ(window().focusedName(), "START SORTING");
    window().press(Qt::Key_Return);

    EXPECT_FALSE(user.isOpen("SETUP WIZARD"));
    EXPECT_TRUE(user.isOpen("Sources"));
    EXPECT_TRUE(window().shows("SOURCES (1)"));
    EXPECT_TRUE(window().shows("in"));
    EXPECT_TRUE(window().shows("out"));
    for (int stop = 0; stop < 6; ++stop)
        window().press(Qt::Key_Return);
    EXPECT_FALSE(tour().isOpen());
    EXPECT_TRUE(user.canPress("Dry Run — Preview"));
}

TEST_F(FirstStartTest, EachWayOutMarksTheWizardAsDoneAndStartsTheTour) {
    for (const char* const way : {"Skip Setup", "✕", "Escape"}) {
        SCOPED_TRACE(way);
        user.startAsFound();
        user.app().content().firstRun()->openWizard();
        if (std::string_view(way) == "Escape")
            window().press(Qt::Key_Escape);
        else
            user.press(way);
        EXPECT_FALSE(user.isOpen("SETUP WIZARD"));
        EXPECT_TRUE(user.isOpen("Sources"));
        EXPECT_TRUE(user.app().settings().boolean(keys::kHasCompletedWizard));
    }
}

TEST_F(FirstStartTest, TheWizardComesAtEachStartUntilItIsDone) {
    user.startAsFound();
    EXPECT_TRUE(user.isOpen("SETUP WIZARD"));
    user.startAsFound();
    EXPECT_TRUE(user.isOpen("SETUP WIZARD"));
    user.press("Skip Setup");
    user.startAsFound();
    EXPECT_FALSE(user.isOpen("SETUP WIZARD"));
    EXPECT_FALSE(user.isOpen("Sources"));
}

TEST_F(FirstStartTest, TheToolsOpenTheWizardAgain) {
    user.start();
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    EXPECT_FALSE(user.isOpen("SETUP WIZARD"));
    user.press("SETUP WIZARD");
    ASSERT_TRUE(user.isOpen("SETUP WIZARD"));
    goTo(1);
    EXPECT_TRUE(window().shows("Sources (1)"));
    goTo(2);
    EXPECT_TRUE(user.canPress("CHANGE"));
    EXPECT_TRUE(user.canPress("Next →"));
    EXPECT_FALSE(user.canPress("Skip →"));
    user.press("Skip Setup");
    EXPECT_TRUE(user.isOpen("Sources"));
    EXPECT_EQ(user.app().content().folders()->sources()->count(), 1);
}

TEST_F(FirstStartTest, TheWizardHasItsPlaceAmongTheTools) {
    user.start();
    QStringList tools;
    const auto* const interface = window().accessible(QAccessible::Button, "SETUP WIZARD");
    ASSERT_NE(interface, nullptr);
    for (const QQuickItem* const tool : qobject_cast<QQuickItem*>(interface->object())->parentItem()->childItems())
        tools << tool->property("text").toString() + " " + tool->property("symbol").toString();
    EXPECT_EQ(tools, QStringList({"PRESETS square.and.arrow.down", "RENAME RULES pencil", "SETUP WIZARD wand.and.stars",
                                  "DATE CORRECTION clock.badge.checkmark"}));
}

TEST_F(FirstStartTest, TheWelcomeHasTheWordmarkAndEachScreenItsPositionInTheMiddle) {
    user.startAsFound();
    const auto texts = window().shownTexts();
    EXPECT_TRUE(std::ranges::any_of(texts, [](const QQuickItem* text) {
        return text->property("text") == "VELLO" && text->property("font").value<QFont>().pixelSize() == 32;
    }));
    const auto middle = placeOf(window().itemNamed("wizardTrack")).center().x();
    EXPECT_NEAR(placeOf(window().itemNamed("wizardPosition")).center().x(), middle, 1);
}

TEST_F(FirstStartTest, TheDestinationCanBeTakenAway) {
    user.startAsFound();
    goTo(2);
    user.chooser().answerNext({library.makeFolder("out")});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CHANGE"); }));
    auto& remove = *window().itemsNamed("wizardRemove").back();
    EXPECT_EQ(remove.property("symbol"), "xmark");
    const auto& row = *remove.parentItem();
    EXPECT_EQ(colourOf(*row.findChild<QQuickItem*>("wizardFolderPath")), QColor("#909088"));
    const auto& mark = *row.findChild<QQuickItem*>("wizardMark");
    EXPECT_EQ(mark.property("name"), "checkmark.circle.fill");
    EXPECT_EQ(mark.property("colour").value<QColor>(), QColor("#3d8b5e"));
    window().click(remove);
    EXPECT_TRUE(user.canPress("ADD"));
    EXPECT_TRUE(user.canPress("Skip →"));
    EXPECT_EQ(user.app().settings().text(keys::kDestPath), "");
    EXPECT_EQ(window().focusedName(), "ADD");
}

TEST_F(FirstStartTest, ALongListScrollsAndIsClearedAtOnce) {
    user.startAsFound();
    goTo(1);
    EXPECT_FALSE(user.canPress("CLEAR ALL"));
    std::vector<std::string> folders;
    for (int i = 0; i < 20; ++i)
        folders.push_back(library.makeFolder("folder " + std::to_string(i)));
    user.chooser().answerNext(folders);
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return window().shows("Sources (20)"); }));
    EXPECT_EQ(window().itemNamed("wizardSources").height(), 160);
    window().click(window().itemNamed("wizardRemove"));
    EXPECT_TRUE(window().shows("Sources (19)"));
    user.press("CLEAR ALL");
    EXPECT_TRUE(window().shows("Sources (0)"));
    EXPECT_EQ(window().focusedName(), "ADD");
    EXPECT_TRUE(window().shows("SOURCES (20)")) << "they stay sources";
}

TEST_F(FirstStartTest, FoldersCanBeDroppedOnTheScreensThatAskForThem) {
    const auto drop = [&](const std::string& words, const std::string& folder) {
        for (const QQuickItem* const area : window().itemsNamed("folderDrop"))
            if (area->isVisible() && window().itemNamed("wizardScreen").isAncestorOf(area)) {
                const QList<QUrl> urls{QUrl::fromLocalFile(QString::fromStdString(folder))};
                window().dragOver(*area, urls);
                EXPECT_TRUE(window().shows(QString::fromStdString(words)));
                window().dropOn(*area, urls);
            }
    };
    user.startAsFound();
    goTo(1);
    drop("Drop to add", library.makeFolder("in"));
    ASSERT_TRUE(spinUntil([&] { return window().shows("Sources (1)"); }));
    goTo(2);
    drop("Drop to set", library.makeFolder("out"));
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CHANGE"); }));
    EXPECT_EQ(user.app().settings().text(keys::kDestPath), library / "out");
}

TEST_F(FirstStartTest, AFileInPlaceOfAFolderIsRefusedInTheWizard) {
    user.startAsFound();
    goTo(1);
    user.chooser().answerNext({library.write("photo.jpg")});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return !user.app().content().folders()->refusal().isEmpty(); }));
    window().settle();
    auto* const words = window().accessible(
        QAccessible::AlertMessage, QString::fromStdString("“" + library.path() + "/photo.jpg” is not a folder."));
    EXPECT_NE(words, nullptr);
    user.press("Skip Setup");
    EXPECT_EQ(user.app().content().notices()->count(), 0) << "it is not told again in the window";
}

TEST_F(FirstStartTest, TheScreensHaveTheirColours) {
    user.startAsFound();
    EXPECT_TRUE(std::ranges::any_of(window().itemsNamed("sheet"), [](const QQuickItem* sheet) {
        return sheet->isVisible() && sheet->width() == 620;
    }));
    EXPECT_EQ(window().itemNamed("wizardTrack").height(), 3);
    EXPECT_EQ(colourOf(window().itemNamed("wizardTrack")), QColor("#1a1a1a"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardFill")), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardPosition")), QColor("#555550"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardCard")), QColor("#0d0d0d"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardCardTitle")), QColor("#e8e8e0"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardStep")), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardTitle")), QColor("#e8e8e0"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardSubtitle")), QColor("#909088"));
    EXPECT_EQ(colourOf(window().itemNamed("wizardNote")), QColor("#707068"));
    EXPECT_EQ(labelColour("Skip Setup"), QColor("#555550"));
    EXPECT_EQ(labelColour("Next →"), QColor("#0a0a0a"));
    EXPECT_EQ(window().itemNamed("wizardCardIcon").property("colour").value<QColor>(), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("sheetBackground")), QColor("#0a0a0a"));
    const auto& card = window().itemNamed("wizardCard");
    EXPECT_EQ(card.property("border").value<QObject*>()->property("color").value<QColor>(), QColor("#1e1e1e"));
    goTo(3);
    EXPECT_EQ(labelColour("← Back"), QColor("#707068"));
    EXPECT_EQ(colourOf(window().itemNamed("bulletDot")), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("bulletText")), QColor("#b0b0a8"));
}

TEST_F(FirstStartTest, TheBarFillsSmoothly) {
    user.startAsFound();
    auto& fill = window().itemNamed("wizardFill");
    const auto whole = window().itemNamed("wizardTrack").width();
    EXPECT_DOUBLE_EQ(fill.width(), whole / 5);
    user.press("Next →");
    EXPECT_LT(fill.width(), whole * 2 / 5);
    EXPECT_LT(window().itemNamed("wizardScreen").opacity(), 1) << "the screen comes in";
    ASSERT_TRUE(spinUntil([&] { return qFuzzyCompare(fill.width(), whole * 2 / 5); }));
    ASSERT_TRUE(spinUntil([&] { return window().itemNamed("wizardScreen").opacity() == 1; }));
    expectToEase("wizardFillEase", QEasingCurve::InOutQuad);
}

TEST_F(FirstStartTest, ExifToolsSiteIsOpenedFromTheLastScreen) {
    user.startAsFound();
    EXPECT_FALSE(user.canPress("Open exiftool.org"));
    goTo(4);
    user.press("Open exiftool.org");
    EXPECT_THAT(user.links().asked, ::testing::ElementsAre(std::vector<std::string>{"https://exiftool.org"}));
}

TEST_F(FirstStartTest, AScreenReaderHearsEachScreenAndEachStop) {
    user.startAsFound();
    EXPECT_EQ(dialogDescription("SETUP WIZARD"), "Let's get your photos organised.");
    window().press(Qt::Key_Return);
    EXPECT_EQ(dialogDescription("SETUP WIZARD"), "Where are your photos?");
    EXPECT_TRUE(focusedDescription().startsWith("Step 1 of 4\nWhere are your photos?\nPick one or more folders"));
    EXPECT_NE(window().accessible(QAccessible::Heading, "Tip"), nullptr);
    window().press(Qt::Key_Escape);

    EXPECT_EQ(window().focusedName(), "Next →");
    EXPECT_TRUE(focusedDescription().startsWith("Sources\nAdd your photo folders here."));
    EXPECT_TRUE(focusedDescription().endsWith("1 of 6"));
    window().press(Qt::Key_Right);
    EXPECT_EQ(dialogDescription("Destination"),
              "Where sorted photos go.\nVellomar creates Year/Month folders automatically.");
    EXPECT_TRUE(focusedDescription().startsWith("Destination\n"));
}

}  // namespace
}  // namespace vellomar
