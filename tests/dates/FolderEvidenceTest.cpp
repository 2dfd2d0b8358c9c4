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
        return cache.evidenceFor({folder, rules, secretFloppyMode, parseMonthWords, now});
    }

    FolderEvidenceCache cache;
    std::vector<FolderRenameRule> rules;
    bool secretFloppyMode = false;
    bool parseMonthWords = true;
    Instant now = local(2026, 5, 28);
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
    rules.emplace_back();
    rules.back().matchText = "rome";
    rules.back().replacement = "Italy";
    EXPECT_EQ(evidence("Rome").meaningful.first, "Italy");
    rules.back().replacement = "Lazio";
    EXPECT_EQ(evidence("Rome").meaningful.first, "Lazio");
    rules.back().isEnabled = false;
    EXPECT_EQ(evidence("Rome").meaningful.first, "Rome");
}

TEST_F(FolderEvidenceCacheTest, AChangeOfTheFloppyModeTakesEffect) {
    EXPECT_EQ(evidence("Floppy Dorno").meaningful.first, "Floppy Dorno");
    secretFloppyMode = true;
    EXPECT_EQ(evidence("Floppy Dorno").meaningful.first, "Floppy");
}

TEST_F(FolderEvidenceCacheTest, AChangeOfTheMonthWordsTakesEffect) {
    EXPECT_EQ(evidence("Aug 2019").yearMonth, (FolderYearMonth{2019, 8}));
    parseMonthWords = false;
    EXPECT_EQ(evidence("Aug 2019").yearMonth, (FolderYearMonth{2019, std::nullopt}));
}

TEST_F(FolderEvidenceCacheTest, ANewYearTakesEffect) {
    now = local(2026, 12, 31, 23, 59, 59);
    EXPECT_EQ(evidence("Trip 27").yearMonth, (FolderYearMonth{1927, std::nullopt}));
    now = local(2027, 1, 1);
    EXPECT_EQ(evidence("Trip 27").yearMonth, (FolderYearMonth{2027, std::nullopt}));
}

}  // namespace
}  // namespace vellomar
