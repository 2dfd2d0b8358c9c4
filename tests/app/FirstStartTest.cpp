// The first start, as a new user goes through it.
#include <algorithm>
#include <string_view>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/SettingsKeys.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::spinUntil;

class FirstStartTest : public ::testing::Test {
protected:
    [[nodiscard]] testing::WindowDriver& window() { return user.window(); }
    [[nodiscard]] WizardModel& wizard() { return *user.app().content().firstRun()->wizard(); }
    [[nodiscard]] TourModel& tour() { return *user.app().content().firstRun()->tour(); }

    // By the keyboard, as far as it takes.
    void tabTo(const QString& name) {
        for (int i = 0; i < 30 && window().focusedName() != name; ++i)
            window().press(Qt::Key_Tab);
        ASSERT_EQ(window().focusedName(), name);
    }

    void goTo(int step) {
        while (wizard().step() < step)
            wizard().goForward();
        window().settle();
    }

    // How what has the keyboard's focus is described to a screen reader.
    [[nodiscard]] QString focusedDescription() {
        auto* const interface = QAccessible::queryAccessibleInterface(user.app().window()->activeFocusItem());
        return interface == nullptr ? QString() : interface->text(QAccessible::Description);
    }

    // What a dialog of that name is described as; nothing if there is none.
    [[nodiscard]] QString dialogDescription(const QString& name) {
        auto* const interface = window().accessible(QAccessible::Dialog, name);
        return interface == nullptr ? QString() : interface->text(QAccessible::Description);
    }

    testing::RunningApp user;
    const testing::TemporaryFolder& library = user.library();
};

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

TEST_F(FirstStartTest, TheDestinationCanBeTakenAway) {
    user.startAsFound();
    goTo(2);
    user.chooser().answerNext({library.makeFolder("out")});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CHANGE"); }));
    auto& remove = *window().itemsNamed("wizardRemove").back();
    EXPECT_EQ(remove.property("symbol"), "xmark");
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
    const auto& card = window().itemNamed("wizardCard");
    EXPECT_EQ(card.property("border").value<QObject*>()->property("color").value<QColor>(), QColor("#1e1e1e"));
    goTo(3);
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
    ASSERT_TRUE(spinUntil([&] { return qFuzzyCompare(fill.width(), whole * 2 / 5); }));
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
    EXPECT_TRUE(focusedDescription().startsWith("Step 1 of 4. Where are your photos?. Pick one or more folders"));
    EXPECT_NE(window().accessible(QAccessible::Heading, "Tip"), nullptr);
    window().press(Qt::Key_Escape);

    EXPECT_EQ(window().focusedName(), "Next →");
    EXPECT_TRUE(focusedDescription().startsWith("Sources. Add your photo folders here."));
    EXPECT_TRUE(focusedDescription().endsWith("1 of 6"));
    window().press(Qt::Key_Right);
    EXPECT_EQ(dialogDescription("Destination"),
              "Where sorted photos go.\nVellomar creates Year/Month folders automatically.");
    EXPECT_TRUE(focusedDescription().startsWith("Destination. "));
}

TEST_F(FirstStartTest, TheTourFollowsItsKeys) {
    user.startAsFound();
    user.press("Skip Setup");
    EXPECT_FALSE(user.canPress("← Back"));
    window().press(Qt::Key_Left);
    EXPECT_TRUE(user.isOpen("Sources"));
    for (const char* const title : {"Destination", "Config", "DRY RUN & RUN", "Dashboard", "Log & Options"}) {
        window().press(Qt::Key_Right);
        EXPECT_TRUE(user.isOpen(title)) << title;
    }
    EXPECT_TRUE(user.canPress("Got it!"));
    window().press(Qt::Key_Left);
    EXPECT_TRUE(user.isOpen("Dashboard"));
    user.press("← Back");
    EXPECT_TRUE(user.isOpen("DRY RUN & RUN"));
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(tour().isOpen());
    EXPECT_TRUE(user.canPress("Add source folder"));
}

TEST_F(FirstStartTest, TheTourIsLeftByItsButtonsAndAClickBesideIt) {
    user.startAsFound();
    user.press("Skip Setup");
    user.press("Skip Tour");
    EXPECT_FALSE(tour().isOpen());

    tour().open();
    tour().setStep(5);
    user.press("Got it!");
    EXPECT_FALSE(tour().isOpen());

    tour().open();
    window().settle();
    window().click(window().itemNamed("tourTitle"));
    EXPECT_TRUE(tour().isOpen()) << "the callout is not the scrim";
    window().clickAt({850, 100});
    EXPECT_FALSE(tour().isOpen());
}

TEST_F(FirstStartTest, BackGoesWithTheFirstScreenAndLeavesTheFocusInside) {
    user.startAsFound();
    EXPECT_FALSE(user.canPress("← Back"));
    window().press(Qt::Key_Return);
    tabTo("← Back");
    window().press(Qt::Key_Return);
    EXPECT_TRUE(wizard().isWelcome());
    EXPECT_EQ(window().focusedName(), "Next →");
    window().press(Qt::Key_Escape);
    window().press(Qt::Key_Right);
    tabTo("← Back");
    window().press(Qt::Key_Return);
    EXPECT_EQ(tour().step(), 0);
    EXPECT_EQ(window().focusedName(), "Next →");
}

TEST_F(FirstStartTest, TheTourHasItsColours) {
    user.startAsFound();
    user.press("Skip Setup");
    const auto& box = window().itemNamed("tourBox");
    EXPECT_EQ(window().itemNamed("tourCallout").width(), 300);
    EXPECT_EQ(colourOf(box), QColor("#111111"));
    EXPECT_EQ(box.property("border").value<QObject*>()->property("color").value<QColor>(), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("tourTitle")), QColor("#e8e8e0"));
    EXPECT_EQ(window().itemNamed("tourIcon").property("colour").value<QColor>(), QColor("#e8e8e0"));
    EXPECT_EQ(colourOf(window().itemNamed("tourDescription")), QColor("#b0b0a8"));
    EXPECT_EQ(colourOf(window().itemNamed("tourPosition")), QColor("#555550"));
    const auto& forward = window().itemNamed("tourForward");
    EXPECT_EQ(forward.property("colour").value<QColor>(), QColor("#0a0a0a"));
    EXPECT_EQ(forward.property("fill").value<QColor>(), QColor("#f5c518"));
}

TEST_F(FirstStartTest, TheTourLeavesTheWindowAsItWas) {
    user.startAsFound();
    user.press("Skip Setup");
    window().press(Qt::Key_Right);
    window().press(Qt::Key_Right);
    window().press(Qt::Key_Right);
    const auto isScrolled = [&] {
        return std::ranges::any_of(window().itemsNamed("flickable"),
                                   [](const QQuickItem* area) { return area->property("contentY").toReal() > 0; });
    };
    EXPECT_TRUE(isScrolled()) << "or there is nothing to put back";
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(isScrolled());
}

TEST_F(FirstStartTest, NothingBelowTheTourIsInReach) {
    user.startAsFound();
    user.app().content().folders()->addSource(library.makeFolder("in"));
    user.app().content().folders()->setDestination({library.makeFolder("out")});
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->canRun(); }));
    user.press("Skip Setup");
    window().press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(user.isOpen("NORMAL RUN"));
    window().press(Qt::Key_F1);
    EXPECT_FALSE(user.isOpen("VELLOMAR HELP"));
    for (int i = 0; i < 8; ++i) {
        window().press(Qt::Key_Tab);
        EXPECT_THAT(window().focusedName(), ::testing::AnyOf(QString("Next →"), QString("Skip Tour")));
    }
}

TEST_F(FirstStartTest, ACardWaitsForTheWizardAndTheTour) {
    library.makeFolder("EOS_DIGITAL/DCIM");
    user.startAsFound();
    user.mounts().mount(library / "EOS_DIGITAL");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().cards()->isOpen(); }));
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    user.press("Skip Setup");
    EXPECT_TRUE(user.isOpen("Sources"));
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    window().press(Qt::Key_Escape);
    EXPECT_TRUE(user.isOpen("CAMERA CARD DETECTED"));
}

TEST_F(FirstStartTest, TheReminderTellsWhereTheWizardIsUntilItIsClicked) {
    user.startAsFound();
    user.press("Skip Setup");
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(window().shows("SETUP WIZARD AVAILABLE"));
    ASSERT_TRUE(spinUntil([&] { return window().shows("SETUP WIZARD AVAILABLE"); }));
    EXPECT_TRUE(
        window().shows("You can re-run the wizard anytime using the SETUP WIZARD button in the toolbar above."));
    EXPECT_TRUE(user.app().settings().boolean(keys::kHasSeenWizardReminder));
    user.press("SETUP WIZARD AVAILABLE");
    ASSERT_TRUE(spinUntil([&] { return !window().shows("SETUP WIZARD AVAILABLE"); }));
}

}  // namespace
}  // namespace vellomar
