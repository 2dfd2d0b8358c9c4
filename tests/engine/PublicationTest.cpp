#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/Publication.h"

namespace vellomar {
namespace {

class CountingObserver final : public EngineObserver {
public:
    void fieldChanged(PublishedField field) override { fields.push_back(field); }
    void linesAppended(std::size_t count) override { appended += count; }
    void linesDropped(std::size_t count) override { dropped += count; }
    void rowsAppended(std::size_t count) override { rows += count; }

    std::vector<PublishedField> fields;
    std::size_t appended = 0;
    std::size_t dropped = 0;
    std::size_t rows = 0;
};

std::vector<std::string> lines(int first, int count) {
    std::vector<std::string> result;
    for (int i = first; i < first + count; ++i)
        result.push_back(std::to_string(i));
    return result;
}

std::vector<PlanRow> rows(std::size_t count) {
    return std::vector<PlanRow>(count);
}

TEST(Publication, KeepsTheNewestFiveThousandLines) {
    CountingObserver observer;
    Publication publication(&observer);
    publication.appendLogLines(lines(1, 5'000));
    EXPECT_EQ(publication.state().logLines.size(), 5'000);
    EXPECT_EQ(observer.dropped, 0);
    publication.appendLogLines(lines(5'001, 1));
    EXPECT_EQ(publication.state().logLines.front(), "2");
    EXPECT_EQ(publication.state().logLines.back(), "5001");
    EXPECT_EQ(publication.state().logLines.size(), 5'000);
    EXPECT_EQ(observer.appended, 5'001);
    EXPECT_EQ(observer.dropped, 1);
}

TEST(Publication, KeepsTheFirstFiveThousandRowsAndTellsThatItDroppedSome) {
    CountingObserver observer;
    Publication publication(&observer);
    publication.appendPreviewRows(rows(4'950));
    publication.appendPreviewRows(rows(50));
    EXPECT_EQ(publication.state().previewRows.size(), 5'000);
    EXPECT_FALSE(publication.state().previewRowsCapped);
    publication.appendPreviewRows(rows(1));
    EXPECT_EQ(publication.state().previewRows.size(), 5'000);
    EXPECT_TRUE(publication.state().previewRowsCapped);
    EXPECT_EQ(observer.rows, 5'000);
}

TEST(Publication, FillsTheLastRoomWithPartOfABatch) {
    Publication publication(nullptr);
    publication.appendPreviewRows(rows(4'999));
    publication.appendPreviewRows(rows(2));
    EXPECT_EQ(publication.state().previewRows.size(), 5'000);
    EXPECT_TRUE(publication.state().previewRowsCapped);
}

TEST(Publication, ResetsEverythingButWhetherItRuns) {
    CountingObserver observer;
    Publication publication(&observer);
    publication.setRunning(true);
    publication.setProgress(0.5);
    publication.setStatus("Done");
    publication.appendLogLines(lines(1, 3));
    publication.appendPreviewRows(rows(5'001));
    publication.set(PublishedField::verifyFailures, &PublishedState::verifyFailures, 7);
    observer.fields.clear();
    publication.resetPublishedState();
    const auto& state = publication.state();
    EXPECT_TRUE(state.isRunning);
    EXPECT_FALSE(state.previewRowsCapped);
    EXPECT_EQ(state.progress, 0);
    EXPECT_EQ(state.statusText, "Scanning...");
    EXPECT_TRUE(state.logLines.empty());
    EXPECT_TRUE(state.previewRows.empty());
    EXPECT_EQ(state.verifyFailures, 0);
    EXPECT_EQ(observer.fields.size(), 15);
    EXPECT_THAT(observer.fields, ::testing::Not(::testing::Contains(PublishedField::isRunning)));
}

}  // namespace
}  // namespace vellomar
