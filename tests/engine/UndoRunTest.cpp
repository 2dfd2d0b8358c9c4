#include <filesystem>
#include <future>
#include <thread>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include "engine/RunFixture.h"
#include "platform/FileDigest.h"
#include "support/ScopedTimeZone.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kBothReversed = "Undo complete — reversed: 2  skipped: 0  failed: 0";

// A disk that removes nothing until it is let; it notes who asked.
class GatedDisk final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<void> removeFile(const std::string& path) override {
        thread = std::this_thread::get_id();
        priority = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        opened_.wait();
        return real().removeFile(path);
    }

    void open() { gate_.set_value(); }

    std::thread::id thread;
    int priority = 0;

private:
    std::promise<void> gate_;
    std::shared_future<void> opened_ = gate_.get_future().share();
};

class UndoRunTest : public RunTest {
protected:
    // A manifest of `count` copies without hashes that stand in "dest".
    [[nodiscard]] UndoManifest copies(int count) const {
        UndoManifest manifest{"2024-06-14T09:41:07", source, dest, {}};
        for (int i = 0; i < count; ++i) {
            const auto name = "/" + std::to_string(i) + ".jpg";
            manifest.appendUndoEntry(
                {UndoEntry::OpType::copy, source + name, folder.write("dest" + name), std::nullopt, clock.now()});
        }
        return manifest;
    }

    [[nodiscard]] UndoManifest newestManifest() {
        auto manifest = loadNewestManifest(disk, dest);
        EXPECT_TRUE(manifest.has_value());
        return manifest.value_or(UndoManifest{});
    }

    static void waitForUndo(testing::EngineHarness& of) {
        of.mainActor.runUntil([&] { return !of.state().isRunning; });
        of.mainActor.runPending();
    }

    testing::ScopedTimeZone zone{"UTC"};
};

TEST_F(UndoRunTest, ItsStartIsPublishedAtOnce) {
    harness.engine->undo(copies(3));
    EXPECT_TRUE(harness.state().isRunning);
    EXPECT_EQ(harness.state().statusText, "Undoing 3 operations...");
    EXPECT_EQ(harness.state().progress, 0);
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0));
    EXPECT_FALSE(harness.engine->hasTask());
    waitForUndo(harness);
}

TEST_F(UndoRunTest, PublishesItsWayAndItsOutcome) {
    auto manifest = copies(4);
    std::filesystem::remove(dest + "/1.jpg");
    std::filesystem::remove(dest + "/2.jpg");
    folder.write("dest/2.jpg/inside", "kept");
    harness.undo(manifest);
    EXPECT_THAT(log(), ElementsAre("✓ Removed copy: " + dest + "/3.jpg", "✗ Failed: 2.jpg — Is a directory",
                                   "⚠ SKIP (already gone): 1.jpg", "✓ Removed copy: " + dest + "/0.jpg"));
    EXPECT_THAT(harness.observer.statusHistory,
                ElementsAre("Undoing 4 operations...", "Undo complete — reversed: 2  skipped: 1  failed: 1"));
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0, 0.25, 0.5, 1, 1));
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_EQ(harness.state().progress, 1);
    EXPECT_FALSE(harness.notifications.last());
}

TEST_F(UndoRunTest, AManifestWithoutEntriesGoesStraightToTheEnd) {
    folder.makeFolder("dest/empty");
    harness.undo({"2024-06-14T09:41:07", source, dest, {}});
    EXPECT_THAT(harness.observer.statusHistory,
                ElementsAre("Undoing 0 operations...", "Undo complete — reversed: 0  skipped: 0  failed: 0"));
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0, 1));
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_TRUE(exists(dest + "/empty"));
}

TEST_F(UndoRunTest, TellsItsCallerBehindTheOutcome) {
    int calls = 0;
    harness.engine->undo(copies(2), [&] {
        ++calls;
        EXPECT_FALSE(harness.state().isRunning);
        EXPECT_EQ(harness.state().statusText, kBothReversed);
        EXPECT_EQ(harness.state().progress, 1);
        EXPECT_THAT(harness.state().logLines, SizeIs(2));
    });
    EXPECT_EQ(calls, 0);
    waitForUndo(harness);
    EXPECT_EQ(calls, 1);
}

TEST_F(UndoRunTest, TheOutcomeIsPublishedInOnePiece) {
    harness.observer.onStatus = [&](std::string_view status) {
        EXPECT_EQ(status.starts_with("Undo complete"), !harness.state().isRunning);
    };
    harness.engine->undo(copies(2), [&] { EXPECT_EQ(harness.state().progress, 1); });
    waitForUndo(harness);
    EXPECT_EQ(harness.state().statusText, kBothReversed);
}

TEST_F(UndoRunTest, TakesACopyRunBack) {
    const auto photoPath = photo("Rome/20230814_143021.jpg", "photo");
    run(copyOptions());
    const auto manifest = newestManifest();
    harness.observer.allLogLines.clear();
    harness.undo(manifest);
    EXPECT_THAT(log(), ElementsAre("✓ Removed copy: " + manifest.entries.at(0).destination));
    EXPECT_THAT(filesBelow(dest), ElementsAre("_vellomar_undo_2024-06-14_094107.json"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dest), {}), 1);
    EXPECT_EQ(contentOf(photoPath), "photo");
}

TEST_F(UndoRunTest, TakesAMoveRunBack) {
    const auto photoPath = photo("Rome/20230814_143021.jpg", "photo");
    run(moveOptions());
    ASSERT_FALSE(exists(photoPath));
    harness.observer.allLogLines.clear();
    harness.undo(newestManifest());
    EXPECT_THAT(log(), ElementsAre("✓ Restored: 2023-08-14_143021_20230814_143021.jpg → " + photoPath));
    EXPECT_EQ(contentOf(photoPath), "photo");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dest), {}), 1);
}

TEST_F(UndoRunTest, LeavesTheRestOfWhatARunPublished) {
    photo("20230814_143021.jpg", "photo");
    run(copyOptions());
    const auto linesOfRun = harness.state().logLines.size();
    harness.undo(newestManifest());
    EXPECT_EQ(harness.state().logLines.size(), linesOfRun + 1);
    EXPECT_EQ(harness.state().totalFilesScanned, 1);
    EXPECT_EQ(harness.state().previewRows.size(), 1);
    EXPECT_EQ(harness.state().libraryStats.totalFiles, 1);
}

TEST_F(UndoRunTest, ACopyThatWasEditedAfterItsHashWasTakenStays) {
    photo("20230814_143021.jpg", "photo");
    run(copyOptions());
    const auto manifest = newestManifest();
    const auto& copy = manifest.entries.at(0).destination;
    ASSERT_TRUE(manifest.entries.at(0).sha256.has_value());
    folder.write(copy.substr(folder.path().size() + 1), "photo without its place");
    harness.observer.allLogLines.clear();
    harness.undo(manifest);
    EXPECT_THAT(log(), ElementsAre("⚠ SKIP (file changed since sort — hash mismatch): "
                                   "2023-08-14_143021_20230814_143021.jpg"));
    EXPECT_EQ(harness.state().statusText, "Undo complete — reversed: 0  skipped: 1  failed: 0");
    EXPECT_EQ(contentOf(copy), "photo without its place");
}

// The manifest names the path that was asked for, so an undo knows nothing of the file under the free name.
TEST_F(UndoRunTest, OfTwoFilesThatMetAtOneNameTheOlderOneIsTaken) {
    photo("20230814_143021.jpg", "photo");
    run(copyOptions());
    run(copyOptions());
    harness.undo(newestManifest());
    EXPECT_EQ(harness.state().statusText, "Undo complete — reversed: 1  skipped: 0  failed: 0");
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/08 - August/2023-08-14_143021_20230814_143021 (1).jpg",
                                              "_vellomar_undo_2024-06-14_094107.json"));
}

TEST_F(UndoRunTest, ARunAndItsUndoCanBeRepeated) {
    photo("20230814_143021.jpg", "photo");
    for (int i = 0; i < 3; ++i) {
        run(moveOptions());
        EXPECT_EQ(harness.state().statusText, "Done");
        harness.undo(newestManifest());
        EXPECT_EQ(harness.state().statusText, "Undo complete — reversed: 1  skipped: 0  failed: 0");
    }
    EXPECT_THAT(filesBelow(source), ElementsAre("20230814_143021.jpg"));
}

TEST_F(UndoRunTest, AnotherUndoMayStartWhenOneHasFinished) {
    const auto manifest = copies(2);
    bool secondFinished = false;
    harness.engine->undo(manifest, [&] { harness.engine->undo(manifest, [&] { secondFinished = true; }); });
    harness.mainActor.runUntil([&] { return secondFinished; });
    EXPECT_THAT(harness.observer.statusHistory,
                ElementsAre("Undoing 2 operations...", kBothReversed, "Undoing 2 operations...",
                            "Undo complete — reversed: 0  skipped: 2  failed: 0"));
}

TEST_F(UndoRunTest, ASecondUndoMeanwhileDoesNothing) {
    auto other = copies(3);
    other.entries.erase(other.entries.begin(), other.entries.begin() + 2);
    const auto kept = other.entries.at(0).destination;
    harness.engine->undo(copies(2));
    harness.engine->undo(other, [] { ADD_FAILURE() << "called"; });
    EXPECT_EQ(harness.state().statusText, "Undoing 2 operations...");
    waitForUndo(harness);
    EXPECT_TRUE(exists(kept));
    EXPECT_THAT(log(), SizeIs(2));
    EXPECT_THAT(harness.observer.statusHistory, ElementsAre("Undoing 2 operations...", kBothReversed));
}

TEST_F(UndoRunTest, AnUndoDuringARunDoesNothing) {
    photo("20230814_143021.jpg", "photo");
    const auto manifest = copies(1);
    harness.engine->startRun({source}, folder.makeFolder("other"), copyOptions());
    harness.mainActor.runUntil([&] { return harness.state().isRunning; });
    harness.engine->undo(manifest, [] { ADD_FAILURE() << "called"; });
    harness.waitForEnd();
    EXPECT_EQ(harness.state().statusText, "Done");
    EXPECT_THAT(harness.observer.statusHistory, Not(Contains(StartsWith("Undo"))));
    EXPECT_TRUE(exists(manifest.entries[0].destination));
}

// An engine whose undo is under way until the gate opens.
class UndoUnderWay : public UndoRunTest {
protected:
    GatedDisk gated{fileSystem};
    testing::EngineHarness waiting{{.fileSystem = &gated, .clock = &clock}};

    void finish() {
        gated.open();
        waitForUndo(waiting);
    }
};

TEST_F(UndoUnderWay, ARunThatStartsMeanwhileReturns) {
    photo("20230814_143021.jpg", "photo");
    waiting.engine->undo(copies(2));
    waiting.engine->startRun({source}, folder.makeFolder("other"), copyOptions());
    EXPECT_TRUE(waiting.engine->hasTask());
    waiting.waitForEnd();
    EXPECT_TRUE(waiting.state().isRunning);
    EXPECT_EQ(waiting.state().statusText, "Undoing 2 operations...");
    finish();
    EXPECT_THAT(filesBelow(folder / "other"), IsEmpty());
    EXPECT_THAT(waiting.observer.allLogLines, SizeIs(2));
    EXPECT_EQ(waiting.state().statusText, kBothReversed);
}

TEST_F(UndoUnderWay, ComesBeforeARunThatHasNotBegunToPublish) {
    waiting.engine->startRun({source}, folder.makeFolder("other"), copyOptions());
    waiting.engine->undo(copies(2));
    waiting.waitForEnd();
    finish();
    EXPECT_THAT(waiting.observer.statusHistory, ElementsAre("Undoing 2 operations...", kBothReversed));
}

TEST_F(UndoUnderWay, CancellingChangesTheStatusAlone) {
    waiting.engine->undo(copies(2));
    waiting.engine->cancelRun();
    waiting.mainActor.runPending();
    EXPECT_TRUE(waiting.state().isRunning);
    finish();
    EXPECT_THAT(waiting.observer.statusHistory, ElementsAre("Undoing 2 operations...", "Cancelling...", kBothReversed));
    EXPECT_THAT(filesBelow(dest), IsEmpty());
}

TEST_F(UndoUnderWay, KeepsTheDesktopAwake) {
    waiting.engine->undo(copies(2));
    while (waiting.sleepInhibitor.holdsEver() == 0)
        std::this_thread::yield();
    EXPECT_EQ(waiting.sleepInhibitor.lastReason(), "Undoing a run");
    EXPECT_EQ(waiting.sleepInhibitor.holds(), 1);
    gated.open();
    waiting.mainActor.runUntil([&] { return !waiting.state().isRunning; });
    EXPECT_EQ(waiting.sleepInhibitor.holds(), 0);
    EXPECT_EQ(waiting.sleepInhibitor.holdsEver(), 1);
}

TEST_F(UndoUnderWay, WorksOnAThreadOfItsOwnThatLetsOthersGoFirst) {
    waiting.engine->undo(copies(1));
    finish();
    EXPECT_NE(gated.thread, std::this_thread::get_id());
    EXPECT_GE(gated.priority, 10);
}

TEST_F(UndoUnderWay, DestroyingTheEngineWaitsForItsEnd) {
    waiting.engine->undo(copies(20), [] { ADD_FAILURE() << "called"; });
    const std::jthread opener([&] { gated.open(); });
    waiting.engine.reset();
    EXPECT_THAT(filesBelow(dest), IsEmpty());
    EXPECT_EQ(waiting.sleepInhibitor.holds(), 0);
    // What the undo had posted finds nobody, and does no harm.
    waiting.mainActor.runPending();
}

}  // namespace
}  // namespace vellomar
