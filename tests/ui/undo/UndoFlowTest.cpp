#include <gmock/gmock.h>

#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "ui/LiveEngine.h"
#include "ui/QtPrinters.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/undo/UndoFlow.h"

namespace vellomar {
namespace {

using testing::LiveEngine;
using testing::ScriptedFileChooser;
using testing::SettingsFile;
using testing::spinUntil;
using testing::TemporaryFolder;

class UndoFlowTest : public ::testing::Test {
protected:
    UndoFlowTest() {
        library.write("in/IMG_20230814_143021.jpg");
        settings->setValue(keys::kDestPath, library.makeFolder("out"));
    }

    // A real run, which leaves a manifest.
    void sort() {
        Options options;
        options.dryRun = false;
        engine->startRun({library / "in"}, library / "out", options);
        engine.waitForRun();
        ASSERT_TRUE(testing::exists(library / kCopy));
    }

    void open() {
        flow.open();
        ASSERT_TRUE(spinUntil([&] { return flow.isOpen(); }));
    }

    static constexpr const char* kCopy = "out/2023/08 - August/2023-08-14_000000_IMG_20230814_143021.jpg";

    TemporaryFolder library{TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    ScriptedFileChooser chooser;
    LiveEngine engine;
    BackgroundWork background;
    UndoFlow flow{{*engine, engine.events(), *settings, fileSystem, chooser, background}};
};

TEST_F(UndoFlowTest, NeedsADestinationAndAnEngineAtRest) {
    EXPECT_TRUE(flow.canOpen());
    settings->setValue(keys::kDestPath, "");
    EXPECT_FALSE(flow.canOpen());
    flow.open();
    EXPECT_FALSE(flow.isLoading());
    settings->setValue(keys::kDestPath, library / "out");
    engine.makeBusy();
    EXPECT_FALSE(flow.canOpen());
    engine.waitForEnd();
}

TEST_F(UndoFlowTest, DoesNotOpenWhileItIsHeldUp) {
    int changes = 0;
    QObject::connect(&flow, &UndoFlow::changed, [&] { ++changes; });
    flow.setHeldUp(true);
    flow.setHeldUp(true);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(flow.canOpen());
    flow.open();
    EXPECT_FALSE(flow.isLoading());
    flow.setHeldUp(false);
    EXPECT_TRUE(flow.canOpen());
}

TEST_F(UndoFlowTest, ListsTheRunsOfTheDestination) {
    sort();
    flow.open();
    EXPECT_TRUE(flow.isLoading());
    EXPECT_FALSE(flow.canOpen());
    EXPECT_FALSE(flow.isOpen()) << "it opens with its list";
    ASSERT_TRUE(spinUntil([&] { return flow.isOpen(); }));
    EXPECT_FALSE(flow.isLoading());
    EXPECT_EQ(flow.sheet()->count(), 1);
    EXPECT_FALSE(flow.sheet()->hasSelection());
    flow.dismiss();
    EXPECT_FALSE(flow.isOpen());
    EXPECT_EQ(flow.sheet()->count(), 0) << "closed, it lets go of them";
}

TEST_F(UndoFlowTest, TakesBackTheSelectedRun) {
    sort();
    open();
    flow.sheet()->select(0);
    flow.undoSelected();
    EXPECT_FALSE(flow.isOpen());
    EXPECT_TRUE(flow.isUndoing());
    ASSERT_TRUE(spinUntil([&] { return !flow.isUndoing(); }));
    EXPECT_FALSE(testing::exists(library / kCopy));
    EXPECT_TRUE(testing::exists(library / "in/IMG_20230814_143021.jpg"));
}

TEST_F(UndoFlowTest, NothingSelectedIsNothingUndone) {
    sort();
    open();
    flow.undoSelected();
    EXPECT_FALSE(flow.isUndoing());
    EXPECT_TRUE(flow.isOpen());
}

TEST_F(UndoFlowTest, FilesFromElsewhereCanBePicked) {
    open();
    const auto manifest = library.write("kept.json", R"({"runID":"2024-06-14T11:40:58","sourceRoot":"/in",)"
                                                     R"("destRoot":"/out","entries":[]})");
    chooser.answerNext({manifest});
    flow.pickFiles();
    ASSERT_TRUE(spinUntil([&] { return flow.sheet()->hasSelection(); }));
    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::files);
    EXPECT_EQ(chooser.last()->prompt, "Import Undo File");
    EXPECT_EQ(chooser.last()->filter.patterns, QStringList("*.json"));
}

TEST_F(UndoFlowTest, OpenedAgainItStartsAfresh) {
    sort();
    open();
    flow.sheet()->select(0);
    flow.dismiss();
    open();
    EXPECT_FALSE(flow.sheet()->hasSelection());
    EXPECT_EQ(flow.sheet()->count(), 1);
}

}  // namespace
}  // namespace vellomar
