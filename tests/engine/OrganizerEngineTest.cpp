#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "engine/OrganizerEngine.h"
#include "engine/RunFixture.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class OrganizerEngineTest : public RunTest {
protected:
    void photos(int count) {
        for (int i = 0; i < count; ++i)
            photo("20230814_143021_" + std::to_string(i) + ".jpg", "photo " + std::to_string(i));
    }
    testing::ScopedTimeZone zone{"UTC"};
};

TEST_F(OrganizerEngineTest, StartsWithNothingPublished) {
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_FALSE(harness.engine->hasTask());
    EXPECT_EQ(harness.state().statusText, "");
}

TEST_F(OrganizerEngineTest, CancellingEndsBehindTheFileUnderWay) {
    photos(5);
    harness.cancelWhenLogged("✓ Copied: ");
    run(copyOptions());
    const auto lines = fileLines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_THAT(lines[0], StartsWith("✓ Copied: "));
    EXPECT_EQ(lines[1], "Cancellation requested. Stopping...");
    EXPECT_EQ(lines[2], "Cancelled before post-processing.");
    EXPECT_TRUE(hasLine("  Files processed:    1 of 5"));
    EXPECT_EQ(harness.state().statusText, "Cancelled");
    EXPECT_EQ(harness.state().progress, 0);
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_FALSE(harness.notifications.last());
    EXPECT_EQ(filesBelow(dest).size(), 1);  // the one file, and no manifest
    EXPECT_THAT(harness.observer.statusHistory, Contains("Cancelling..."));
    EXPECT_EQ(harness.state().previewRows.size(), 1);
    EXPECT_EQ(harness.state().libraryStats.totalFiles, 1);
}

TEST_F(OrganizerEngineTest, CancellingDuringTheScanTakesEffectBeforeTheFirstFile) {
    photos(3);
    harness.cancelWhenStatus("Scanning…");
    run(copyOptions());
    EXPECT_THAT(fileLines(), ElementsAre("Cancellation requested. Stopping...", "Cancelled before post-processing."));
    EXPECT_TRUE(hasLine("Total files: 3"));
    EXPECT_TRUE(hasLine("  Files processed:    0 of 3"));
    EXPECT_TRUE(hasLine("  Avg file size:      0 B"));
}

TEST_F(OrganizerEngineTest, ACancelledDryRunWritesNoPlan) {
    photos(3);
    harness.cancelWhenLogged("[DRY] ");
    run(dryOptions());
    EXPECT_TRUE(filesBelow(dest).empty());
}

TEST_F(OrganizerEngineTest, CancellingWithoutARunOnlySaysSo) {
    harness.engine->cancelRun();
    harness.mainActor.runPending();
    EXPECT_EQ(harness.state().statusText, "Cancelling...");
    photos(1);
    run(copyOptions());
    EXPECT_EQ(harness.state().statusText, "Done");
}

TEST_F(OrganizerEngineTest, ASecondStartDuringARunDoesNothing) {
    photos(3);
    const auto other = folder.makeFolder("other");
    harness.engine->startRun({source}, dest, copyOptions());
    harness.engine->startRun({source}, other, copyOptions());
    harness.waitForEnd();
    EXPECT_EQ(filesBelow(dest).size(), 4);
    EXPECT_TRUE(filesBelow(other).empty());
    EXPECT_EQ(std::ranges::count(log(), "  PERFORMANCE SUMMARY"), 1);
}

TEST_F(OrganizerEngineTest, RunsOneAfterTheOther) {
    photos(2);
    run(dryOptions());
    run(copyOptions());
    run(dryOptions());
    EXPECT_EQ(std::ranges::count(log(), "  PERFORMANCE SUMMARY"), 3);
    EXPECT_EQ(harness.state().previewRows.size(), 2);
}

TEST_F(OrganizerEngineTest, DestroyingItDuringARunEndsTheRun) {
    photos(200);
    harness.engine->startRun({source}, dest, copyOptions());
    harness.mainActor.runUntil([&] { return !harness.observer.allLogLines.empty(); });
    harness.engine.reset();
    EXPECT_EQ(harness.sleepInhibitor.holds(), 0);
    const auto after = filesBelow(dest);
    EXPECT_LT(after.size(), 200);
    for (const auto& file : after)
        EXPECT_THAT(file, Not(HasSubstr(".__partial")));
    // What the run had posted finds nobody, and does no harm.
    harness.mainActor.runPending();
}

TEST_F(OrganizerEngineTest, DestroyingItRightAfterTheStartEndsTheRun) {
    photos(20);
    for (int i = 0; i < 20; ++i) {
        testing::EngineHarness other({.fileSystem = &fileSystem});
        other.engine->startRun({source}, dest, dryOptions());
        other.engine.reset();
        other.mainActor.runPending();
    }
}

TEST_F(OrganizerEngineTest, StartsAndCancelsInAnyOrderLeaveItUsable) {
    photos(30);
    std::mt19937 random(7);
    for (int i = 0; i < 100; ++i) {
        switch (random() % 4) {
            case 0: harness.engine->startRun({source}, dest, dryOptions()); break;
            case 1: harness.engine->cancelRun(); break;
            case 2: harness.engine->appendLog("from outside"); break;
            default: harness.mainActor.runPending(); break;
        }
    }
    harness.waitForEnd();
    run(dryOptions());
    EXPECT_EQ(harness.state().statusText, "Done");
    EXPECT_EQ(harness.state().libraryStats.totalFiles, 30);
}

TEST_F(OrganizerEngineTest, CountsNeitherUnknownCamerasNorMissingExtensions) {
    photo("20230814_143021", "1");
    photo("IMG_1.jpg", "2");
    auto options = dryOptions();
    options.includeOther = true;
    run(options);
    const auto& stats = harness.state().libraryStats;
    EXPECT_TRUE(stats.byCamera.empty());
    EXPECT_THAT(stats.byExtension, ElementsAre(std::pair("jpg", 1)));
    EXPECT_THAT(stats.dateSourceBreakdown, ElementsAre(std::pair("FS ModificationDate", 1), std::pair("Filename", 1)));
    EXPECT_EQ(stats.duplicateCount, 0);
    EXPECT_EQ(stats.nearDupCount, 0);
}

}  // namespace
}  // namespace vellomar
