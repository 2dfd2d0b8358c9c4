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
    void start(bool dryRun = true) { monitor_.start(source_.path(), dest_.path(), optionsOf(dryRun)); }

    // The log with the times of day left out, newest first, as soon as all is delivered.
    [[nodiscard]] std::vector<std::string> messages() {
        harness_.mainActor.runPending();
        std::vector<std::string> lines;
        for (const auto& line : monitor_.log())
            lines.push_back(line.substr(line.find("] ") + 2));
        return lines;
    }

    // Until the run that was begun, if any, is over.
    void settle() {
        harness_.mainActor.runPending();
        harness_.waitForEnd();
        monitor_.noteRunEnd();
    }

    TemporaryFolder source_{TemporaryFolder::Where::inMemory};
    TemporaryFolder dest_{TemporaryFolder::Where::inMemory};
    EngineHarness harness_;
    ScriptedFolderWatcher watcher_;
    int changes_ = 0;
    WatchFolderMonitor monitor_{harness_.engine,
                                {harness_.mainActor, harness_.realFileSystem, harness_.systemClock, watcher_},
                                [this] { ++changes_; }};
};

TEST_F(WatchFolderMonitorTest, RestsUntilItIsStarted) {
    EXPECT_FALSE(monitor_.isWatching());
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
    EXPECT_FALSE(monitor_.lastActivity());
    EXPECT_THAT(monitor_.log(), IsEmpty());
    EXPECT_EQ(watcher_.asked(), 0);
}

TEST_F(WatchFolderMonitorTest, StartWatchesAndSaysSo) {
    start();
    EXPECT_TRUE(monitor_.isWatching());
    EXPECT_EQ(monitor_.watchedPath(), source_.path());
    EXPECT_EQ(monitor_.destPath(), dest_.path());
    EXPECT_EQ(watcher_.folder(), source_.path());
    const auto name = std::filesystem::path(source_.path()).filename().string();
    EXPECT_THAT(messages(), ElementsAre("Watching: " + name));
    EXPECT_GT(changes_, 0);
}

TEST_F(WatchFolderMonitorTest, ALineBeginsWithTheTimeOfDay) {
    monitor_.appendWatchLog("hello");
    harness_.mainActor.runPending();
    ASSERT_THAT(monitor_.log(), SizeIs(1));
    EXPECT_THAT(monitor_.log().front(), MatchesRegex("\\[.*[0-9]+[:.][0-9]+[:.][0-9]+.*\\] hello"));
}

TEST_F(WatchFolderMonitorTest, ALineComesThroughTheMainActor) {
    std::jthread([this] { monitor_.appendWatchLog("from elsewhere"); }).join();
    EXPECT_THAT(monitor_.log(), IsEmpty());
    EXPECT_THAT(messages(), ElementsAre("from elsewhere"));
}

TEST_F(WatchFolderMonitorTest, TheLogKeepsTheNewestHundredLines) {
    for (int i = 0; i <= 100; ++i)
        monitor_.appendWatchLog(std::to_string(i));
    const auto lines = messages();
    ASSERT_THAT(lines, SizeIs(100));
    EXPECT_EQ(lines.front(), "100");
    EXPECT_EQ(lines.back(), "1");
}

TEST_F(WatchFolderMonitorTest, ArrivalsHaveTheWholeFolderSorted) {
    source_.write("2021-05-06 old.jpg");
    const auto photo = source_.write("IMG_20240102_030405.jpg");
    start();
    watcher_.tell({photo});
    settle();
    EXPECT_THAT(messages(), ElementsAre("1 new file(s) detected — sorting…", HasSubstr("Watching: ")));
    EXPECT_EQ(monitor_.filesProcessed(), 1U);
    EXPECT_TRUE(monitor_.lastActivity());
    EXPECT_THAT(harness_.state().previewRows, SizeIs(2));
}

TEST_F(WatchFolderMonitorTest, CountsEveryFileOfEveryDelivery) {
    const auto photo = source_.write("a.jpg");
    const auto sidecar = source_.write("a.xmp");
    start();
    watcher_.tell({photo, sidecar});
    settle();
    watcher_.tell({photo});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 3U);
    EXPECT_EQ(messages().front(), "1 new file(s) detected — sorting…");
}

TEST_F(WatchFolderMonitorTest, ADryRunStaysOneAndARealRunIsReal) {
    const auto photo = source_.write("IMG_20240102_030405.jpg");
    start(true);
    watcher_.tell({photo});
    settle();
    EXPECT_FALSE(holdsPhotos(dest_.path()));
    monitor_.stop();
    start(false);
    watcher_.tell({photo});
    settle();
    EXPECT_TRUE(holdsPhotos(dest_.path()));
}

TEST_F(WatchFolderMonitorTest, WhatIsGoneOrAFolderBeginsNoRun) {
    start();
    watcher_.tell({source_ / "removed.jpg", source_.makeFolder("folder")});
    settle();
    EXPECT_THAT(messages(), SizeIs(1));
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
    EXPECT_FALSE(monitor_.lastActivity());
    EXPECT_THAT(harness_.observer.allLogLines, IsEmpty());
}

TEST_F(WatchFolderMonitorTest, ArrivalsDuringARunAreDropped) {
    const auto photo = source_.write("a.jpg");
    start();
    harness_.engine->startRun({source_.path()}, dest_.path(), optionsOf(true));
    watcher_.tell({photo});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
    EXPECT_THAT(messages(), SizeIs(1));
    watcher_.tell({photo});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 1U);
}

TEST_F(WatchFolderMonitorTest, ArrivalsWhileItIsHeldUpAreDropped) {
    const auto photo = source_.write("a.jpg");
    start();
    monitor_.setHeldUp(true);
    watcher_.tell({photo});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
    EXPECT_THAT(harness_.observer.allLogLines, IsEmpty());
    monitor_.setHeldUp(false);
    watcher_.tell({photo});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 1U);
}

TEST_F(WatchFolderMonitorTest, StartWhileWatchingChangesNothing) {
    const TemporaryFolder other;
    start(true);
    monitor_.start(other.path(), other.path(), optionsOf(false));
    EXPECT_EQ(monitor_.watchedPath(), source_.path());
    EXPECT_EQ(watcher_.asked(), 1);
    EXPECT_THAT(messages(), SizeIs(1));
    const auto photo = source_.write("IMG_20240102_030405.jpg");
    watcher_.tell({photo});
    settle();
    ASSERT_THAT(harness_.state().previewRows, SizeIs(1));
    EXPECT_FALSE(holdsPhotos(dest_.path()));
}

TEST_F(WatchFolderMonitorTest, StopEndsTheWatchAndSaysSo) {
    start();
    monitor_.stop();
    EXPECT_FALSE(monitor_.isWatching());
    EXPECT_EQ(watcher_.watches(), 0);
    EXPECT_THAT(messages(), ElementsAre("Watch stopped.", HasSubstr("Watching: ")));
    watcher_.tellTooLate({source_.write("a.jpg")});
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
}

TEST_F(WatchFolderMonitorTest, IsStartedAgainWithOtherFolders) {
    start();
    monitor_.stop();
    monitor_.start(dest_.path(), source_.path(), optionsOf(true));
    EXPECT_EQ(monitor_.watchedPath(), dest_.path());
    EXPECT_EQ(watcher_.folder(), dest_.path());
}

TEST_F(WatchFolderMonitorTest, AWatchThatCannotBeMadeIsSilent) {
    watcher_.isRefusing = true;
    start();
    EXPECT_TRUE(monitor_.isWatching());
    EXPECT_THAT(messages(), SizeIs(1));
    monitor_.stop();
    EXPECT_FALSE(monitor_.isWatching());
}

TEST_F(WatchFolderMonitorTest, ItDoesNotKeepTheEngine) {
    start();
    const std::weak_ptr<OrganizerEngine> engine = harness_.engine;
    harness_.engine.reset();
    EXPECT_TRUE(engine.expired());
    watcher_.tell({source_.write("a.jpg")});
    harness_.mainActor.runPending();
    EXPECT_EQ(monitor_.filesProcessed(), 0U);
    EXPECT_THAT(messages(), SizeIs(1));
}

// With the destination inside, all that a run does arrives in the watched folder.
TEST_F(WatchFolderMonitorTest, ARunInTheWatchedFolderBeginsNoOther) {
    const auto photo = source_.write("a.jpg");
    // Behind all runs of the round before.
    auto quiet = std::chrono::steady_clock::now();
    for (const auto& destination : {source_.path(), source_.makeFolder("sorted"), source_ / "not/there/yet"}) {
        monitor_.start(source_.path(), destination, optionsOf(true));
        const auto before = monitor_.filesProcessed();
        watcher_.tell({photo}, quiet += 1h);
        settle();
        EXPECT_EQ(monitor_.filesProcessed(), before + 1) << destination;
        watcher_.tell({photo}, std::chrono::steady_clock::now());
        settle();
        EXPECT_EQ(monitor_.filesProcessed(), before + 1) << destination;
        watcher_.tell({photo}, quiet += 1h);
        settle();
        EXPECT_EQ(monitor_.filesProcessed(), before + 2) << destination;
        monitor_.stop();
    }
}

TEST_F(WatchFolderMonitorTest, ADestinationElsewhereCostsNoArrivals) {
    const auto photo = source_.write("a.jpg");
    start();
    watcher_.tell({photo});
    settle();
    watcher_.tell({photo}, std::chrono::steady_clock::now());
    settle();
    EXPECT_EQ(monitor_.filesProcessed(), 2U);
}

TEST_F(WatchFolderMonitorTest, SortsRealFilesAsTheyArrive) {
    LinuxFolderWatcher watcher(harness_.realFileSystem, {.latency = 20ms});
    WatchFolderMonitor monitor(harness_.engine,
                               {harness_.mainActor, harness_.realFileSystem, harness_.systemClock, watcher});
    monitor.start(source_.path(), dest_.path(), optionsOf(false));
    source_.write("camera/IMG_20240102_030405.jpg");
    harness_.mainActor.runUntil([&] { return monitor.filesProcessed() > 0; });
    harness_.waitForEnd();
    EXPECT_TRUE(holdsPhotos(dest_.path()));
}

}  // namespace
}  // namespace vellomar
