// From the first start to a run that is taken back, by the names of what is shown.
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::RunningApp;
using testing::spinUntil;

constexpr const char* kCopy = "out/2023/08 - August/trip/2023-08-14_000000_IMG_20230814_143021.jpg";

class WholeRoadTest : public ::testing::Test {
protected:
    WholeRoadTest() {
        library.write("in/trip/IMG_20230814_143021.jpg");
        library.makeFolder("out");
    }

    void startWithFolders() {
        user.start();
        user.pickFolders(library / "in", library / "out");
    }

    void sort() {
        user.press("Sort Photos");
        user.press("RUN NOW");
        user.waitForEnd();
        ASSERT_TRUE(testing::exists(library / kCopy));
    }

    RunningApp user;
    const testing::TemporaryFolder& library = user.library();
};

TEST_F(WholeRoadTest, AFirstStartHasNothingToRun) {
    user.start();
    EXPECT_FALSE(user.canPress("Dry Run — Preview"));
    EXPECT_FALSE(user.canPress("Sort Photos"));
    EXPECT_FALSE(user.canPress("ESTIMATE"));
    EXPECT_FALSE(user.canPress("UNDO"));
    EXPECT_FALSE(user.canPress("CANCEL"));
    EXPECT_FALSE(user.canPress("COPY"));
    EXPECT_TRUE(user.canPress("Add source folder"));
    EXPECT_TRUE(user.canPress("Set destination folder"));
    for (const char* const text :
         {"SOURCES (0)", "DESTINATION", "READY", "Idle", "LAST RUN", "ACTIVITY LOG", "Run a sort to see stats here",
          "Run Dry Run or Sort to see activity here", "Run Dry Run first to preview every file move before sorting"})
        EXPECT_TRUE(user.window().shows(text)) << text;
    EXPECT_EQ(user.app().window()->title(), "Vellomar Organizer");
}

TEST_F(WholeRoadTest, ADryRunTouchesNothing) {
    startWithFolders();
    EXPECT_TRUE(user.window().shows("SOURCES (1)"));
    EXPECT_TRUE(user.canPress("Change destination"));

    user.press("Dry Run — Preview");
    EXPECT_TRUE(user.isOpen("DRY RUN"));
    user.press("RUN DRY RUN");
    EXPECT_FALSE(user.isOpen("DRY RUN"));
    user.waitForEnd();

    EXPECT_TRUE(testing::exists(library / "out/_preview_plan.csv"));
    EXPECT_FALSE(testing::exists(library / "out/2023"));
    user.waitForLogLine("[DRY]");
    EXPECT_TRUE(user.canPress("COPY"));
    EXPECT_TRUE(user.window().shows("Files Sorted"));
}

TEST_F(WholeRoadTest, ARealRunSortsAndAnUndoTakesItBack) {
    startWithFolders();
    user.press("Sort Photos");
    EXPECT_TRUE(user.isOpen("NORMAL RUN"));
    EXPECT_FALSE(testing::exists(library / kCopy)) << "it has not been confirmed yet";
    user.press("RUN NOW");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / kCopy));
    EXPECT_TRUE(testing::exists(library / "in/trip/IMG_20230814_143021.jpg"));

    user.press("Undo Last Run");
    ASSERT_TRUE(spinUntil([&] { return user.isOpen("UNDO A RUN"); }));
    user.window().press(Qt::Key_Down);
    user.press("UNDO THIS RUN");
    EXPECT_FALSE(user.isOpen("UNDO A RUN"));
    user.waitForEnd();
    EXPECT_FALSE(testing::exists(library / kCopy));
    EXPECT_TRUE(testing::exists(library / "in/trip/IMG_20230814_143021.jpg"));
}

void savePlanWindow(RunningApp& user) {
    user.press("POP OUT");
    auto* const own = user.app().window()->findChild<QQuickWindow*>("planWindow");
    own->resize(1280, 832);
    testing::WindowDriver driver(*own);
    user.app().content().planWindow()->plan()->filters()->setSearchText("pixel 8");
    ASSERT_TRUE(spinUntil([&] { return std::ranges::any_of(driver.itemsNamed("picture"), &QQuickItem::isVisible); }));
    QTest::qWait(500);
    driver.saveScreenshot("road-5-plan");
    user.app().content().planWindow()->close();
    user.window().waitUntilActive();
}

// The road of the README, whose pictures are these.
TEST(WholeRoadPictures, ADryRunARealRunAndAnUndo) {
    RunningApp user(QSize(1280, 832));
    const auto& library = user.library();
    library.makeFolder("anna/Pictures/Unsorted/Lisbon");
    ASSERT_EQ(
        std::system(
            ("cd '" + library.path() +
             "/anna/Pictures/Unsorted/Lisbon' && convert -size 240x180 plasma:steelblue-wheat "
             "plasma:navy-orange plasma:teal-white plasma:gold-maroon plasma:olive-skyblue "
             "plasma:tan-indigo -blur 0x3 -scene 11 PXL_202404%02d_10304412.jpg && exiftool -q -overwrite_original "
             "-Make=Google -Model='Pixel 8 Pro' .")
                .c_str()),
        0);
    for (int day = 1; day <= 24; ++day) {
        const auto number = std::to_string(10 + day);
        library.write("anna/Pictures/Unsorted/DCIM/IMG_202306" + number.substr(0, 2) + "_1030" + number + ".jpg",
                      std::string(40'000, 'x') + number);
        library.write("anna/Pictures/Unsorted/Lisbon/PXL_202404" + number.substr(0, 2) + "_1030" + number + "123.jpg",
                      std::string(50'000, 'y') + number);
    }
    library.makeFolder("anna/Pictures/Sorted");
    user.start();
    user.pickFolders(library / "anna/Pictures/Unsorted", library / "anna/Pictures/Sorted");
    user.window().saveScreenshot("road-1-folders");
    user.press("Dry Run — Preview");
    user.window().saveScreenshot("road-2-dry-run");
    user.press("RUN DRY RUN");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "anna/Pictures/Sorted/_preview_plan.csv"));
    savePlanWindow(user);
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    user.window().saveScreenshot("road-3-sorted");
    EXPECT_TRUE(testing::exists(library / "anna/Pictures/Sorted/2024"));
    user.press("UNDO");
    ASSERT_TRUE(spinUntil([&] { return user.isOpen("UNDO A RUN"); }));
    user.window().press(Qt::Key_Down);
    user.window().saveScreenshot("road-4-undo");
    user.press("UNDO THIS RUN");
    user.waitForEnd();
    EXPECT_FALSE(testing::exists(library / "anna/Pictures/Sorted/2024"));
}

TEST_F(WholeRoadTest, TheKeyboardAloneDoesIt) {
    startWithFolders();
    user.window().press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(user.isOpen("NORMAL RUN"));
    EXPECT_EQ(user.window().focusedName(), "CANCEL");
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("NORMAL RUN"));
    EXPECT_FALSE(user.app().engine().hasTask());

    user.window().press(Qt::Key_R, Qt::ControlModifier);
    user.window().press(Qt::Key_Return);
    EXPECT_FALSE(user.isOpen("NORMAL RUN"));
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / kCopy));
}

TEST_F(WholeRoadTest, TabReachesEverythingThatCanBePressed) {
    startWithFolders();
    std::set<QString> reached;
    for (int i = 0; i < 40; ++i) {
        user.window().press(Qt::Key_Tab);
        reached.insert(user.window().focusedName());
    }
    for (const char* const name :
         {"Clear all", "Remove in", "Add source folder", "Remove out", "Change destination", "Dry Run — Preview",
          "Sort Photos", "ALL", "ERRORS", "MOVED", "ESTIMATE", "CSV", "UNDO"})
        EXPECT_TRUE(reached.contains(name)) << name;
    EXPECT_FALSE(reached.contains("CANCEL")) << "there is nothing to cancel";
}

TEST_F(WholeRoadTest, ASecondSortDuringARunDoesNothing) {
    user.writeLargeFiles("in");
    startWithFolders();
    user.startDryRun();
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CANCEL"); }));
    user.window().press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(user.isOpen("NORMAL RUN"));
    EXPECT_FALSE(user.canPress("Sort Photos"));
    EXPECT_TRUE(user.window().shows("RUNNING"));

    user.window().press(Qt::Key_Period, Qt::ControlModifier);
    user.waitForEnd();
    EXPECT_FALSE(user.canPress("CANCEL"));
    EXPECT_TRUE(user.canPress("Sort Photos"));
    user.waitForLogLine("ancel");
}

TEST_F(WholeRoadTest, SwitchingToADryRunFromTheConfirmation) {
    startWithFolders();
    user.press("Sort Photos");
    user.press("SWITCH TO DRY RUN");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "out/_preview_plan.csv"));
    EXPECT_FALSE(testing::exists(library / kCopy));
}

TEST_F(WholeRoadTest, TheEstimateFillsTheCards) {
    startWithFolders();
    user.press("ESTIMATE");
    ASSERT_TRUE(spinUntil([&] { return user.window().shows("1"); }));
    EXPECT_TRUE(user.window().shows("Est. time"));
}

TEST_F(WholeRoadTest, FoldersAreThereAfterARestart) {
    startWithFolders();
    user.start();
    EXPECT_TRUE(user.window().shows("SOURCES (1)"));
    EXPECT_TRUE(user.canPress("Sort Photos"));
    user.press("Clear all");
    EXPECT_TRUE(user.window().shows("SOURCES (0)"));
    EXPECT_FALSE(user.canPress("Sort Photos"));
    user.press("Remove out");
    EXPECT_TRUE(user.canPress("Set destination folder"));
}

TEST_F(WholeRoadTest, ThePlanAndTheLogCanBeExported) {
    startWithFolders();
    user.dryRun();
    user.chooser().answerNext({library / "plan.csv"});
    user.press("CSV");
    user.chooser().answerNext({library / "log.txt"});
    user.press("EXPORT");
    ASSERT_TRUE(
        spinUntil([&] { return testing::exists(library / "plan.csv") && testing::exists(library / "log.txt"); }));
    EXPECT_THAT(testing::contentOf(library / "plan.csv"), ::testing::HasSubstr("IMG_20230814_143021.jpg"));
    EXPECT_THAT(testing::contentOf(library / "log.txt"), ::testing::HasSubstr("[DRY]"));
}

TEST_F(WholeRoadTest, FoldersCanBeDroppedOnTheLists) {
    user.start();
    const auto areas = user.window().itemsNamed("folderDrop");
    ASSERT_EQ(areas.size(), 2U);
    const auto urlOf = [](const std::string& folder) { return QUrl::fromLocalFile(QString::fromStdString(folder)); };
    user.window().dragOver(*areas.front(), {urlOf(library / "in")});
    EXPECT_TRUE(user.window().shows("Drop to add"));
    user.window().dropOn(*areas.front(), {urlOf(library / "in")});
    ASSERT_TRUE(spinUntil([&] { return user.window().shows("SOURCES (1)"); }));
    user.window().dragOver(*areas.back(), {urlOf(library / "out")});
    EXPECT_TRUE(user.window().shows("Drop to set"));
    user.window().dropOn(*areas.back(), {urlOf(library / "out")});
    ASSERT_TRUE(spinUntil([&] { return user.canPress("Change destination"); }));
    EXPECT_TRUE(user.canPress("Sort Photos"));
}

TEST_F(WholeRoadTest, AFileAsASourceIsRefusedWithWords) {
    user.start();
    user.chooser().answerNext({library.write("photo.jpg")});
    user.press("Add source folder");
    const auto words = QString::fromStdString("“" + library.path() + "/photo.jpg” is not a folder.");
    ASSERT_TRUE(spinUntil([&] { return user.window().shows(words); }));
    user.press("✕");
    EXPECT_FALSE(user.window().shows(words));
}

TEST_F(WholeRoadTest, ADeletedSourceIsMarkedAndTheRunGoesOn) {
    startWithFolders();
    user.chooser().answerNext({library.makeFolder("gone")});
    user.press("Add source folder");
    ASSERT_TRUE(spinUntil([&] { return user.window().shows("SOURCES (2)"); }));
    std::filesystem::remove(library / "gone");
    user.app().content().folders()->look();
    ASSERT_TRUE(spinUntil([&] { return user.window().shows("Not found"); }));
    sort();
}

TEST_F(WholeRoadTest, ClosingDuringARunAsksFirst) {
    user.writeLargeFiles("in");
    startWithFolders();
    user.startDryRun();
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CANCEL"); }));

    EXPECT_FALSE(user.app().window()->close());
    EXPECT_TRUE(user.isOpen("QUIT VELLOMAR?"));
    user.press("STAY");
    EXPECT_FALSE(user.isOpen("QUIT VELLOMAR?"));
    EXPECT_TRUE(user.app().window()->isVisible());

    QSignalSpy finished(user.app().content().quit(), &QuitFlow::finished);
    EXPECT_FALSE(user.app().window()->close());
    user.press("QUIT");
    ASSERT_TRUE(spinUntil([&] { return finished.count() == 1; }));
    EXPECT_FALSE(user.app().engine().state().isRunning);
    EXPECT_TRUE(user.app().window()->close());
}

TEST_F(WholeRoadTest, TheHiddenModeHasItsKeysAndItsPaw) {
    user.start();
    EXPECT_FALSE(user.canPress("Floppy mode active"));
    user.window().press(Qt::Key_F, Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    EXPECT_TRUE(user.app().settings().boolean("secret_floppy_mode"));
    user.press("Floppy mode active");
    EXPECT_FALSE(user.app().settings().boolean("secret_floppy_mode"));
}

}  // namespace
}  // namespace vellomar
