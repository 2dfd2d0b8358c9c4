// The plan and its inspector, used as a user uses them.
#include <QTest>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/OptionSettings.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class PlanTest : public ::testing::Test {
protected:
    void startWithPlan() {
        const auto& library = user.library();
        library.write("in/Trip/IMG_20230814_100000.jpg");
        library.write("in/Trip/IMG_20230814_110000.jpg");
        library.write("in/IMG_20190504_100000.jpg");
        user.start();
        user.pickFolders(library / "in", library.makeFolder("out"));
        user.dryRun();
    }

    [[nodiscard]] testing::WindowDriver popOut() {
        user.press("POP OUT");
        auto* const own = user.app().window()->findChild<QQuickWindow*>("planWindow");
        testing::WindowDriver driver(*own);
        driver.waitUntilActive();
        return driver;
    }

    [[nodiscard]] Inspector& inspector() { return *user.app().content().plan()->inspector(); }

    testing::RunningApp user{QSize(1440, 900)};
};

TEST_F(PlanTest, IsEmptyAtFirstAndSaysWhatFillsIt) {
    user.start();
    EXPECT_TRUE(user.window().shows("No preview yet"));
    EXPECT_TRUE(
        user.window().shows("Run Dry Run to see exactly where every photo will go — source path, destination path, "
                            "and camera model for each file."));
    EXPECT_TRUE(user.window().shows("0 files"));
    EXPECT_FALSE(user.canPress("POP OUT"));
    auto* const popOutButton = user.window().accessible(QAccessible::Button, "POP OUT");
    ASSERT_NE(popOutButton, nullptr);
    EXPECT_EQ(popOutButton->text(QAccessible::Description), "Run a Dry Run first to populate the file plan");
    EXPECT_EQ(user.window().accessible(QAccessible::Button, "◉ Run Dry Run to preview"), nullptr) << "nothing can run";
    user.pickFolders(user.library().makeFolder("in"), user.library().makeFolder("out"));
    user.press("◉ Run Dry Run to preview");
    EXPECT_TRUE(user.app().content().run()->isDryRunAsked());
}

TEST_F(PlanTest, SaysThatItIsBeingBuilt) {
    user.writeLargeFiles("in");
    user.start();
    user.pickFolders(user.library() / "in", user.library().makeFolder("out"));
    user.startDryRun();
    ASSERT_TRUE(spinUntil([this] { return user.window().shows("Building plan…"); }));
    EXPECT_FALSE(user.window().shows("No preview yet"));
    user.waitForEnd();
    EXPECT_FALSE(user.window().shows("Building plan…"));
    EXPECT_TRUE(user.window().shows("2 files"));
}

TEST_F(PlanTest, TheKeyboardAloneInspectsARow) {
    startWithPlan();
    auto& window = user.window();
    const auto isOnRow = [&] { return window.focusedName().startsWith("IMG_"); };
    for (int presses = 0; presses < 100 && !isOnRow(); ++presses)
        window.press(Qt::Key_Tab);
    ASSERT_TRUE(isOnRow());
    window.press(Qt::Key_Home);
    window.press(Qt::Key_Down);
    const auto name = window.focusedName();
    EXPECT_EQ(name, user.app().content().plan()->rows()->index(1).data(PlanModel::fileNameRole).toString());
    window.press(Qt::Key_Return);
    ASSERT_TRUE(user.isOpen("FILE INSPECTOR"));
    EXPECT_TRUE(window.shows("WEAK"));
    EXPECT_TRUE(window.shows("Low confidence"));
    EXPECT_TRUE(window.shows(inspector().chosenDate()));
    EXPECT_FALSE(window.shows("ALL DATE CANDIDATES (ranked by confidence)"));
    window.press(Qt::Key_Left);
    EXPECT_EQ(inspector().tab(), 0) << "there is nothing to the left";
    window.press(Qt::Key_Right);
    EXPECT_EQ(inspector().tab(), 1);
    ASSERT_TRUE(spinUntil([this] { return user.window().shows("No camera metadata found in this file."); }));
    window.press(Qt::Key_Right);
    EXPECT_EQ(inspector().tab(), 2);
    window.press(Qt::Key_Right);
    EXPECT_EQ(inspector().tab(), 2);
    window.press(Qt::Key_Left);
    EXPECT_EQ(inspector().tab(), 1);
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("FILE INSPECTOR"));
    EXPECT_EQ(window.focusedName(), name) << "where it came from";
}

TEST_F(PlanTest, TheInspectorRevealsTheFileAndCloses) {
    startWithPlan();
    user.window().click(*user.window().itemsNamed("planRow").front());
    ASSERT_TRUE(user.isOpen("FILE INSPECTOR"));
    user.press("REVEAL IN FINDER");
    EXPECT_THAT(user.reveal().paths, ::testing::ElementsAre(user.app().engine().state().previewRows[0].source));
    user.press("LOCATION");
    ASSERT_TRUE(spinUntil([this] {
        return user.window().shows(
            "No GPS data found in this file.\n\nThis camera or device did not record location information.");
    }));
    user.press("CLOSE");
    EXPECT_FALSE(user.isOpen("FILE INSPECTOR"));
}

TEST_F(PlanTest, ACandidateListIsShownForATextThatHasOne) {
    startWithPlan();
    auto row = user.app().engine().state().previewRows[0];
    row.decision =
        "chosen=Filename(70); candidates=[FS CreationDate(15)=2024-01-01 00:00:00; Filename(70)=2023-08-14 "
        "10:00:00]; date=2023-08-14 10:00:00";
    inspector().open(row);
    ASSERT_TRUE(user.isOpen("FILE INSPECTOR"));
    auto& window = user.window();
    for (const char* const text : {"STRONG", "High confidence", "ALL DATE CANDIDATES (ranked by confidence)"})
        EXPECT_TRUE(window.shows(text)) << text;
    const auto ranks = window.itemsNamed("candidateRank");
    ASSERT_EQ(ranks.size(), 2);
    EXPECT_EQ(testing::colourOf(*ranks[0]), QColor("#f5c518"));
    EXPECT_EQ(testing::colourOf(*ranks[1]), QColor("#707068"));
    EXPECT_EQ(testing::colourOf(*window.itemsNamed("candidateSource")[0]), QColor("#e8e8e0"));
    EXPECT_EQ(testing::colourOf(*window.itemsNamed("candidateSource")[1]), QColor("#909088"));
    EXPECT_EQ(testing::colourOf(*window.itemsNamed("candidateDate")[0]), QColor("#f5c518"));
    EXPECT_EQ(window.itemsNamed("candidateBar")[0]->width(), 56);
    EXPECT_EQ(window.itemsNamed("candidateBar")[0]->parentItem()->size(), QSizeF(80, 4));
    EXPECT_EQ(testing::colourOf(window.itemNamed("chosenBox")), QColor("#0d1a12"));
    EXPECT_EQ(testing::colourOf(window.itemNamed("chosenSource")), QColor("#3d8b5e"));
}

TEST_F(PlanTest, TheWindowSearchesAndFilters) {
    startWithPlan();
    auto plan = popOut();
    EXPECT_TRUE(plan.shows("· 3 of 3"));
    EXPECT_TRUE(plan.shows("3 files · click any row to inspect"));
    plan.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(plan.focusedName(), "Search…");
    for (const auto key : {Qt::Key_T, Qt::Key_R, Qt::Key_I, Qt::Key_P})
        plan.press(key);
    EXPECT_TRUE(plan.shows("· 2 of 3"));
    EXPECT_TRUE(plan.shows("3 files · click any row to inspect")) << "a search is no filter";
    user.app().content().planWindow()->plan()->filters()->years()->toggle(0);
    plan.settle();
    EXPECT_TRUE(plan.shows("FILTER (1)"));
    EXPECT_TRUE(plan.shows("Showing 0 of 3 files"));
    EXPECT_TRUE(plan.shows("No files match the active filters."));
    auto* const clear = plan.accessible(QAccessible::Button, "Clear filters");
    ASSERT_NE(clear, nullptr);
    clear->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    plan.settle();
    EXPECT_TRUE(plan.shows("· 2 of 3"));
    plan.accessible(QAccessible::Button, "Clear search")
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    plan.settle();
    EXPECT_TRUE(plan.shows("· 3 of 3"));
    EXPECT_EQ(plan.focusedName(), "Search…");
}

TEST_F(PlanTest, FiltersAreSelectedByTheirNames) {
    startWithPlan();
    auto plan = popOut();
    const auto press = [&](QAccessible::Role role, const char* name) {
        auto* const interface = plan.accessible(role, name);
        ASSERT_NE(interface, nullptr) << name;
        interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTest::qWait(250);
        plan.settle();
    };
    EXPECT_EQ(plan.accessible(QAccessible::CheckBox, "2023"), nullptr) << "the panel is closed";
    press(QAccessible::Button, "FILTER");
    EXPECT_TRUE(plan.shows("No data yet")) << "no file tells its camera";
    press(QAccessible::CheckBox, "2023");
    EXPECT_TRUE(plan.shows("· 2 of 3"));
    EXPECT_TRUE(plan.accessible(QAccessible::CheckBox, "2023")->state().checked);
    EXPECT_FALSE(plan.accessible(QAccessible::CheckBox, "2019")->state().checked);
    press(QAccessible::CheckBox, "Trip");
    EXPECT_TRUE(plan.shows("FILTER (2)"));
    press(QAccessible::Button, "Clear YEAR");
    EXPECT_TRUE(plan.shows("FILTER (1)"));
    press(QAccessible::Button, "Clear all filters");
    EXPECT_TRUE(plan.shows("· 3 of 3"));
}

TEST_F(PlanTest, AClosedWindowHasNoRows) {
    startWithPlan();
    const auto rowsOf = [](testing::WindowDriver driver) { return driver.itemsNamed("planRow").size(); };
    auto* const own = user.app().window()->findChild<QQuickWindow*>("planWindow");
    EXPECT_EQ(rowsOf(testing::WindowDriver(*own)), 0);
    EXPECT_EQ(rowsOf(popOut()), 3);
    user.app().content().planWindow()->close();
    user.window().settle();
    EXPECT_TRUE(user.window().shows("3 files"));
    EXPECT_EQ(own->findChild<QQuickItem*>("planList")->property("count").toInt(), 0);
}

TEST_F(PlanTest, TheWindowHasAnInspectorOfItsOwn) {
    startWithPlan();
    auto plan = popOut();
    plan.click(*plan.itemsNamed("planRow").front());
    EXPECT_NE(plan.accessible(QAccessible::Dialog, "FILE INSPECTOR"), nullptr);
    EXPECT_FALSE(inspector().isOpen());
    plan.press(Qt::Key_Escape);
    EXPECT_EQ(plan.accessible(QAccessible::Dialog, "FILE INSPECTOR"), nullptr);
    EXPECT_TRUE(user.app().content().planWindow()->isOpen());
    plan.press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(user.app().content().planWindow()->isOpen());
    EXPECT_TRUE(user.app().window()->isVisible());
}

TEST_F(PlanTest, BothViewsFollowTheNextRun) {
    startWithPlan();
    auto plan = popOut();
    user.library().write("in/IMG_20200101_100000.jpg");
    user.app().content().run()->startDryRun();
    ASSERT_TRUE(spinUntil([&] { return !user.app().engine().hasTask(); }));
    plan.settle();
    EXPECT_TRUE(plan.shows("· 4 of 4"));
    EXPECT_TRUE(user.window().shows("4 files"));
}

TEST_F(PlanTest, ThePlanWindowEndsWithTheMainWindow) {
    startWithPlan();
    auto& window = popOut().window();
    EXPECT_EQ(window.transientParent(), nullptr) << "either may lie over the other";
    EXPECT_TRUE(user.app().window()->close());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PlanTest, ThePlanWindowsEndIsNotThePrograms) {
    startWithPlan();
    auto& window = popOut().window();
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(user.app().content().planWindow()->isOpen());
    EXPECT_TRUE(popOut().window().isVisible()) << "it can be opened again";
}

}  // namespace
}  // namespace vellomar
