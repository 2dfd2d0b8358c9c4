#include <deque>

#include <gmock/gmock.h>

#include "engine/NearDuplicateStage.h"
#include "engine/RunFixture.h"
#include "engine/StageFixture.h"

namespace vellomar {
namespace {

using testing::contentOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NearDuplicateStageTest : public StageTest {
protected:
    NearDuplicateStageTest() {
        request.options.dryRun = true;
        request.options.perceptualHashThreshold = 2;
    }

    void report() {
        perform([](const RunContext& context, const RunState& known) { reportNearDuplicates(context, known); });
    }

    void image(std::uint64_t hash, std::string source) {
        state.perceptualBuckets.append(hash, paths.emplace_back(std::move(source)), "/d/x");
    }

    std::deque<std::string> paths;

    std::string reportPath = dest + "/_near_duplicates_report.csv";
};

TEST_F(NearDuplicateStageTest, ADryRunTellsAndLeavesAReport) {
    image(0b0111, "/s/1/a.jpg");
    image(0b0001, "/s/2/b.jpg");
    image(0b0111, "/s/3/c.jpg");
    image(0b1111'1111, "/s/4/far away.jpg");
    report();
    EXPECT_THAT(log(), ElementsAre("≈ Near-dup (dist=2): a.jpg ↔ b.jpg", "≈ Near-dup (dist=2): c.jpg ↔ b.jpg",
                                   "≈ Near-dup (dist=0): a.jpg ↔ c.jpg", "Found 3 near-duplicate pair(s).",
                                   "Near-duplicates report: _near_duplicates_report.csv"));
    EXPECT_EQ(contentOf(reportPath),
              "file_a,file_b\n"
              "\"/s/1/a.jpg\",\"/s/2/b.jpg\"\n"
              "\"/s/3/c.jpg\",\"/s/2/b.jpg\"\n"
              "\"/s/1/a.jpg\",\"/s/3/c.jpg\"\n");
    EXPECT_THAT(filesBelow(dest), ElementsAre("_near_duplicates_report.csv"));
}

TEST_F(NearDuplicateStageTest, ARealRunTellsAndLeavesNone) {
    request.options.dryRun = false;
    request.options.duplicateAction = DuplicateAction::skip;
    image(1, "/s/a.jpg");
    image(1, folder.write("dest/b.jpg"));
    report();
    EXPECT_THAT(log(), ElementsAre("≈ Near-dup (dist=0): a.jpg ↔ b.jpg", "Found 1 near-duplicate pair(s)."));
    EXPECT_THAT(filesBelow(dest), ElementsAre("b.jpg"));
}

TEST_F(NearDuplicateStageTest, WithoutPairsThereIsNoReport) {
    image(0, "/s/a.jpg");
    report();
    image(0b111, "/s/b.jpg");
    report();
    EXPECT_THAT(log(), ElementsAre("No near-duplicates detected.", "No near-duplicates detected."));
    EXPECT_THAT(filesBelow(dest), IsEmpty());
}

TEST_F(NearDuplicateStageTest, TheThresholdIsThatOfTheOptions) {
    image(0, "/s/a.jpg");
    image(0b11111, "/s/b.jpg");
    request.options.perceptualHashThreshold = 4;
    report();
    request.options.perceptualHashThreshold = 5;
    report();
    EXPECT_THAT(log(),
                ElementsAre("No near-duplicates detected.", "≈ Near-dup (dist=5): a.jpg ↔ b.jpg",
                            "Found 1 near-duplicate pair(s).", "Near-duplicates report: _near_duplicates_report.csv"));
}

TEST_F(NearDuplicateStageTest, AReportThatCannotBeWrittenIsClaimedAllTheSame) {
    request.dest = folder / "missing";
    image(1, "/s/a.jpg");
    image(1, "/s/b.jpg");
    report();
    EXPECT_EQ(log().back(), "Near-duplicates report: _near_duplicates_report.csv");
    EXPECT_FALSE(testing::exists(folder / "missing"));
}

TEST_F(NearDuplicateStageTest, ASecondReportReplacesTheFirst) {
    image(1, "/s/a.jpg");
    image(1, "/s/b.jpg");
    report();
    state = RunState();
    image(1, "/s/c.jpg");
    image(1, "/s/d.jpg");
    report();
    EXPECT_EQ(contentOf(reportPath), "file_a,file_b\n\"/s/c.jpg\",\"/s/d.jpg\"\n");
}

TEST_F(NearDuplicateStageTest, OddPathsComeThroughAsBytes) {
    image(1, "/s/\"a\", b.jpg");
    image(1, "/s/c\n\xFF.jpg");
    report();
    EXPECT_EQ(log().front(), "≈ Near-dup (dist=0): \"a\", b.jpg ↔ c\n\xFF.jpg");
    EXPECT_EQ(contentOf(reportPath), "file_a,file_b\n\"/s/\"a\", b.jpg\",\"/s/c\n\xFF.jpg\"\n");
}

TEST_F(NearDuplicateStageTest, NothingIsPublished) {
    image(1, "/s/a.jpg");
    image(1, "/s/b.jpg");
    report();
    EXPECT_THAT(published().duplicateGroups, IsEmpty());
    EXPECT_THAT(published().duplicateDestPaths, IsEmpty());
}

}  // namespace
}  // namespace vellomar
