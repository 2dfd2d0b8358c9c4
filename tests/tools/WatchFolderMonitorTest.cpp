#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/TimeText.h"
#include "platform/watch/LinuxFolderWatcher.h"
#include "support/EngineHarness.h"
#include "support/ScriptedWatchers.h"
#include "support/TemporaryFolder.h"
#include "tools/WatchFolderMonitor.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using testing::EngineHarness;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using testing::ScriptedFolderWatcher;
using ::testing::SizeIs;
using testing::TemporaryFolder;

Options optionsOf(bool dryRun) {
    Options options;
    options.dryRun = dryRun;
    return options;
}

bool holdsPhotos(const std::string& folder) {
    const auto entries = std::filesystem::recursive_directory_iterator(folder);
    return std::ranges::any_of(entries, [](const auto& entry) { return entry.path().extension() == ".jpg"; });
}

class WatchFolderMonitorTest : public ::testing::Test {
protected:
    void start(bool dryRun = true) { monitor.start(source.path(), dest.path(), optionsOf(dryRun)); }

    // The log with the times of day left out, newest first, as soon as all is delivered.
    [[nodiscard]] std::vector<std::string> messages() {
        harness.mainActor.runPending();
        std::vector<std::string> lines;
        for (const auto& line : monitor.log())
            lines.push_back(line.substr(line.find("] ") + 2));
        return lines;
    }

    // Until the run that was begun, if any, is over.
    void settle() {
        harness.mainActor.runPending();
        harness.waitForEnd();
        monitor.noteRunEnd();
    }

    TemporaryFolder source{TemporaryFolder::Where::inMemory};
    TemporaryFolder dest{TemporaryFolder::Where::inMemory};
    EngineHarness harness;
    ScriptedFolderWatcher watcher;
    int changes = 0;
    WatchFolderMonitor monitor{harness.engine,
                               {harness.mainActor, harness.realFileSystem, harness.systemClock, watcher},
                               [this] { ++changes; }};
};

TEST_F(WatchFolderMonitorTest, RestsUntilItIsStarted) {
    EXPECT_FALSE(monitor.isWatching());
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_FALSE(monitor.lastActivity());
    EXPECT_THAT(monitor.log(), IsEmpty());
    EXPECT_EQ(watcher.asked(), 0);
}

TEST_F(WatchFolderMonitorTest, StartWatchesAndSaysSo) {
    start();
    EXPECT_TRUE(monitor.isWatching());
    EXPECT_EQ(monitor.watchedPath(), source.path());
    EXPECT_EQ(monitor.destPath(), dest.path());
    EXPECT_EQ(watcher.folder(), source.path());
    const auto name = std::filesystem::path(source.path()).filename().string();
    EXPECT_THAT(messages(), ElementsAre("Watching: " + name));
    EXPECT_GT(changes, 0);
}

TEST_F(WatchFolderMonitorTest, ALineBeginsWithTheTimeOfDay) {
    monitor.appendWatchLog("hello");
    harness.mainActor.runPending();
    ASSERT_THAT(monitor.log(), SizeIs(1));
    EXPECT_THAT(monitor.log().front(), MatchesRegex("\\[.*[0-9]+[:.][0-9]+[:.][0-9]+.*\\] hello"));
}

TEST_F(WatchFolderMonitorTest, ALineComesThroughTheMainActor) {
    std::jthread([this] { monitor.appendWatchLog("from elsewhere"); }).join();
    EXPECT_THAT(monitor.log(), IsEmpty());
    EXPECT_THAT(messages(), ElementsAre("from elsewhere"));
}

TEST_F(WatchFolderMonitorTest, TheLogKeepsTheNewestHundredLines) {
    for (int i = 0; i <= 100; ++i)
        monitor.appendWatchLog(std::to_string(i));
    const auto lines = messages();
    ASSERT_THAT(lines, SizeIs(100));
    EXPECT_EQ(lines.front(), "100");
    EXPECT_EQ(lines.back(), "1");
}

TEST_F(WatchFolderMonitorTest, ArrivalsHaveTheWholeFolderSorted) {
    source.write("2021-05-06 old.jpg");
    const auto photo = source.write("IMG_20240102_030405.jpg");
    start();
    watcher.tell({photo});
    settle();
    EXPECT_THAT(messages(), ElementsAre("1 new file(s) detected — sorting…", HasSubstr("Watching: ")));
    EXPECT_EQ(monitor.filesProcessed(), 1U);
    EXPECT_TRUE(monitor.lastActivity());
    EXPECT_THAT(harness.state().previewRows, SizeIs(2));
}

TEST_F(WatchFolderMonitorTest, CountsEveryFileOfEveryDelivery) {
    const auto photo = source.write("a.jpg");
    const auto sidecar = source.write("a.xmp");
    start();
    watcher.tell({photo, sidecar});
    settle();
    watcher.tell({photo});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 3U);
    EXPECT_EQ(messages().front(), "1 new file(s) detected — sorting…");
}

TEST_F(WatchFolderMonitorTest, ADryRunStaysOneAndARealRunIsReal) {
    const auto photo = source.write("IMG_20240102_030405.jpg");
    start(true);
    watcher.tell({photo});
    settle();
    EXPECT_FALSE(holdsPhotos(dest.path()));
    monitor.stop();
    start(false);
    watcher.tell({photo});
    settle();
    EXPECT_TRUE(holdsPhotos(dest.path()));
}

TEST_F(WatchFolderMonitorTest, WhatIsGoneOrAFolderBeginsNoRun) {
    start();
    watcher.tell({source / "removed.jpg", source.makeFolder("folder")});
    settle();
    EXPECT_THAT(messages(), SizeIs(1));
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_FALSE(monitor.lastActivity());
    EXPECT_THAT(harness.observer.allLogLines, IsEmpty());
}

TEST_F(WatchFolderMonitorTest, ArrivalsDuringARunAreDropped) {
    const auto photo = source.write("a.jpg");
    start();
    harness.engine->startRun({source.path()}, dest.path(), optionsOf(true));
    watcher.tell({photo});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_THAT(messages(), SizeIs(1));
    watcher.tell({photo});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 1U);
}

TEST_F(WatchFolderMonitorTest, ArrivalsWhileItIsHeldUpAreDropped) {
    const auto photo = source.write("a.jpg");
    start();
    monitor.setHeldUp(true);
    watcher.tell({photo});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_THAT(harness.observer.allLogLines, IsEmpty());
    monitor.setHeldUp(false);
    watcher.tell({photo});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 1U);
}

TEST_F(WatchFolderMonitorTest, StartWhileWatchingChangesNothing) {
    const TemporaryFolder other;
    start(true);
    monitor.start(other.path(), other.path(), optionsOf(false));
    EXPECT_EQ(monitor.watchedPath(), source.path());
    EXPECT_EQ(watcher.asked(), 1);
    EXPECT_THAT(messages(), SizeIs(1));
    const auto photo = source.write("IMG_20240102_030405.jpg");
    watcher.tell({photo});
    settle();
    ASSERT_THAT(harness.state().previewRows, SizeIs(1));
    EXPECT_FALSE(holdsPhotos(dest.path()));
}

TEST_F(WatchFolderMonitorTest, StopEndsTheWatchAndSaysSo) {
    start();
    monitor.stop();
    EXPECT_FALSE(monitor.isWatching());
    EXPECT_EQ(watcher.watches(), 0);
    EXPECT_THAT(messages(), ElementsAre("Watch stopped.", HasSubstr("Watching: ")));
    watcher.tellTooLate({source.write("a.jpg")});
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 0U);
}

TEST_F(WatchFolderMonitorTest, WhatWasOnItsWayWhenItStoppedIsNotForTheNextWatch) {
    start();
    watcher.tell({source.write("a.jpg")});
    monitor.stop();
    monitor.start(dest.path(), source.path(), optionsOf(true));
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_THAT(harness.observer.allLogLines, IsEmpty());
}

TEST_F(WatchFolderMonitorTest, IsStartedAgainWithOtherFolders) {
    start();
    monitor.stop();
    monitor.start(dest.path(), source.path(), optionsOf(true));
    EXPECT_EQ(monitor.watchedPath(), dest.path());
    EXPECT_EQ(watcher.folder(), dest.path());
}

TEST_F(WatchFolderMonitorTest, AWatchThatCannotBeMadeIsSilent) {
    watcher.isRefusing = true;
    start();
    EXPECT_TRUE(monitor.isWatching());
    EXPECT_THAT(messages(), SizeIs(1));
    monitor.stop();
    EXPECT_FALSE(monitor.isWatching());
}

TEST_F(WatchFolderMonitorTest, ItDoesNotKeepTheEngine) {
    start();
    const std::weak_ptr<OrganizerEngine> engine = harness.engine;
    harness.engine.reset();
    EXPECT_TRUE(engine.expired());
    watcher.tell({source.write("a.jpg")});
    harness.mainActor.runPending();
    EXPECT_EQ(monitor.filesProcessed(), 0U);
    EXPECT_THAT(messages(), SizeIs(1));
}

// With the destination inside, all that a run does arrives in the watched folder.
TEST_F(WatchFolderMonitorTest, ARunInTheWatchedFolderBeginsNoOther) {
    const auto photo = source.write("a.jpg");
    // Behind all runs of the round before.
    auto quiet = std::chrono::steady_clock::now();
    for (const auto& destination : {source.path(), source.makeFolder("sorted"), source / "not/there/yet"}) {
        monitor.start(source.path(), destination, optionsOf(true));
        const auto before = monitor.filesProcessed();
        watcher.tell({photo}, quiet += 1h);
        settle();
        EXPECT_EQ(monitor.filesProcessed(), before + 1) << destination;
        watcher.tell({photo}, std::chrono::steady_clock::now());
        settle();
        EXPECT_EQ(monitor.filesProcessed(), before + 1) << destination;
        watcher.tell({photo}, quiet += 1h);
        settle();
        EXPECT_EQ(monitor.filesProcessed(), before + 2) << destination;
        monitor.stop();
    }
}

TEST_F(WatchFolderMonitorTest, ADestinationElsewhereCostsNoArrivals) {
    const auto photo = source.write("a.jpg");
    start();
    watcher.tell({photo});
    settle();
    watcher.tell({photo}, std::chrono::steady_clock::now());
    settle();
    EXPECT_EQ(monitor.filesProcessed(), 2U);
}

TEST_F(WatchFolderMonitorTest, SortsRealFilesAsTheyArrive) {
    LinuxFolderWatcher realWatcher(harness.realFileSystem, {.latency = 20ms});
    WatchFolderMonitor real(harness.engine,
                            {harness.mainActor, harness.realFileSystem, harness.systemClock, realWatcher});
    real.start(source.path(), dest.path(), optionsOf(false));
    source.write("camera/IMG_20240102_030405.jpg");
    harness.mainActor.runUntil([&] { return real.filesProcessed() > 0; });
    harness.waitForEnd();
    EXPECT_TRUE(holdsPhotos(dest.path()));
}

}  // namespace
}  // namespace vellomar
