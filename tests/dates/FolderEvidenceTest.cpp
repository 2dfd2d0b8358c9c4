#include <gtest/gtest.h>

#include "dates/FolderEvidence.h"
#include "dates/LocalInstant.h"

namespace vellomar {
namespace {

using testing::local;
using ::testing::Test;

class FolderEvidenceCacheTest : public Test {
protected:
    FolderEvidence evidence(std::string_view folder) {
        return cache_.evidenceFor({folder, rules_, secretFloppyMode_, parseMonthWords_, now_});
    }

    FolderEvidenceCache cache_;
    std::vector<FolderRenameRule> rules_;
    bool secretFloppyMode_ = false;
    bool parseMonthWords_ = true;
    Instant now_ = local(2026, 5, 28);
};

TEST_F(FolderEvidenceCacheTest, TellsBothWhatAFolderMeansAndItsDate) {
    for (int time = 0; time < 2; ++time) {
        const auto found = evidence("2012/Aug 19");
        EXPECT_EQ(found.meaningful, (MeaningfulFolders{"Aug 19", {"Aug 19"}}));
        EXPECT_EQ(found.yearMonth, (FolderYearMonth{2012, std::nullopt}));
    }
}

TEST_F(FolderEvidenceCacheTest, AnotherFolderIsAskedAnew) {
    EXPECT_EQ(evidence("Rome").meaningful.first, "Rome");
    EXPECT_EQ(evidence("Paris 2012").meaningful.first, "Paris 2012");
    EXPECT_EQ(evidence("").meaningful.first, std::nullopt);
    EXPECT_EQ(evidence("Rome").meaningful.first, "Rome");
}

TEST_F(FolderEvidenceCacheTest, AChangeOfTheRulesTakesEffect) {
    EXPECT_EQ(evidence("Rome").meaningful.first, "Rome");
    rules_.emplace_back();
    rules_.back().matchText = "rome";
    rules_.back().replacement = "Italy";
    EXPECT_EQ(evidence("Rome").meaningful.first, "Italy");
    rules_.back().replacement = "Lazio";
    EXPECT_EQ(evidence("Rome").meaningful.first, "Lazio");
    rules_.back().isEnabled = false;
    EXPECT_EQ(evidence("Rome").meaningful.first, "Rome");
}

TEST_F(FolderEvidenceCacheTest, AChangeOfTheFloppyModeTakesEffect) {
    EXPECT_EQ(evidence("Floppy Dorno").meaningful.first, "Floppy Dorno");
    secretFloppyMode_ = true;
    EXPECT_EQ(evidence("Floppy Dorno").meaningful.first, "Floppy");
}

TEST_F(FolderEvidenceCacheTest, AChangeOfTheMonthWordsTakesEffect) {
    EXPECT_EQ(evidence("Aug 2019").yearMonth, (FolderYearMonth{2019, 8}));
    parseMonthWords_ = false;
    EXPECT_EQ(evidence("Aug 2019").yearMonth, (FolderYearMonth{2019, std::nullopt}));
}

TEST_F(FolderEvidenceCacheTest, ANewYearTakesEffect) {
    now_ = local(2026, 12, 31, 23, 59, 59);
    EXPECT_EQ(evidence("Trip 27").yearMonth, (FolderYearMonth{1927, std::nullopt}));
    now_ = local(2027, 1, 1);
    EXPECT_EQ(evidence("Trip 27").yearMonth, (FolderYearMonth{2027, std::nullopt}));
}

}  // namespace
}  // namespace vellomar
