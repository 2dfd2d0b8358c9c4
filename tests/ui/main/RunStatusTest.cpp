#include <gmock/gmock.h>

#include "engine/Publication.h"
#include "ui/QtPrinters.h"
#include "ui/main/RunStatus.h"

namespace vellomar {
namespace {

PlanRow rowOf(const std::string& action) {
    PlanRow row;
    row.action = action;
    return row;
}

class RunStatusTest : public ::testing::Test {
protected:
    void setProcessed(std::int64_t bytes, double speed) {
        published.set(PublishedField::bytesProcessed, &PublishedState::bytesProcessed, bytes);
        published.set(PublishedField::bytesPerSecond, &PublishedState::bytesPerSecond, speed);
    }

    EngineEvents events;
    Publication published{&events};
    RunStatus status{published.state(), events};
};

TEST_F(RunStatusTest, AtTheStart) {
    EXPECT_FALSE(status.isRunning());
    EXPECT_FALSE(status.hasRun());
    EXPECT_FALSE(status.hasResults());
    EXPECT_EQ(status.progressText(), "Ready");
    EXPECT_EQ(status.bottomText(), "Idle");
    EXPECT_EQ(status.percentage(), "0%");
    EXPECT_EQ(status.stage(), 0);
    EXPECT_EQ(status.processedText(), "");
    EXPECT_EQ(status.speedText(), "");
}

TEST_F(RunStatusTest, DuringARun) {
    published.setRunning(true);
    EXPECT_EQ(status.bottomText(), "Running...");
    published.setStatus("Processing 5 of 10");
    published.setProgress(0.456);
    EXPECT_EQ(status.progressText(), "Processing 5 of 10");
    EXPECT_EQ(status.bottomText(), "Processing 5 of 10");
    EXPECT_EQ(status.percentage(), "46%");
    EXPECT_EQ(status.stage(), 3);
    EXPECT_TRUE(status.hasRun());
}

TEST_F(RunStatusTest, AfterARunItsLastWordStays) {
    published.setRunning(true);
    published.setStatus("Done");
    published.setRunning(false);
    EXPECT_EQ(status.bottomText(), "Done");
    EXPECT_EQ(status.progressText(), "Done");
    EXPECT_TRUE(status.hasRun());
}

TEST_F(RunStatusTest, TheSpeedIsToldOnceSomethingHasGoneThrough) {
    setProcessed(0, 5e6);
    EXPECT_EQ(status.processedText(), "");
    EXPECT_EQ(status.speedText(), "");
    setProcessed(2'500'000'000, 0);
    EXPECT_EQ(status.processedText(), "2.5 GB");
    EXPECT_EQ(status.speedText(), "");
    setProcessed(2'500'000'000, 48'000'000);
    EXPECT_EQ(status.speedText(), "48 MB/s");
}

TEST_F(RunStatusTest, TheCardsFollowTheEstimateAndTheRows) {
    int changes = 0;
    QObject::connect(&status, &RunStatus::changed, [&] { ++changes; });
    status.setEstimate(RunEstimate{12, 3'000'000'000, 65});
    EXPECT_EQ(changes, 1);
    published.appendPreviewRows({rowOf("COPY->/a"), rowOf("SKIP (exists)"), rowOf("SKIP")});
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(status.cardLabels(), QStringList({"Total files", "Total size", "Skipped", "Duplicates", "Est. time"}));
    EXPECT_EQ(status.cardValues(), QStringList({"12", "3.0 GB", "2", "—", "1m 05s"}));
    EXPECT_EQ(status.lastRunLabels(), QStringList({"Files Sorted", "Errors", "Duplicates", "Skipped"}));
    EXPECT_EQ(status.lastRunValues(), QStringList({"—", "—", "—", "2"}));
    EXPECT_TRUE(status.hasResults());
}

TEST_F(RunStatusTest, ANewRunCountsItsRowsAfresh) {
    published.appendPreviewRows({rowOf("SKIP")});
    published.resetPublishedState();
    EXPECT_EQ(status.cardValues()[2], "—");
    EXPECT_FALSE(status.hasResults());
    published.appendPreviewRows({rowOf("SKIP")});
    EXPECT_EQ(status.cardValues()[2], "1");
}

TEST_F(RunStatusTest, CountsFilesByKind) {
    published.set(PublishedField::mediaBreakdown, &PublishedState::mediaBreakdown, MediaBreakdown{3, 2, 1});
    EXPECT_EQ(status.images(), 3);
    EXPECT_EQ(status.videos(), 2);
    EXPECT_EQ(status.others(), 1);
    EXPECT_EQ(status.countedFiles(), 6);
}

TEST_F(RunStatusTest, LinesOfTheLogAreNoNews) {
    int changes = 0;
    QObject::connect(&status, &RunStatus::changed, [&] { ++changes; });
    published.appendLogLines({"a", "b"});
    EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace vellomar
