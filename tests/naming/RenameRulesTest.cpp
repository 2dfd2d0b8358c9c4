#include <gtest/gtest.h>

#include "naming/RenameRules.h"

namespace vellomar {
namespace {

FolderRenameRule rule(std::string matchText, std::string replacement, bool isEnabled = true) {
    FolderRenameRule result;
    result.matchText = std::move(matchText);
    result.replacement = std::move(replacement);
    result.isEnabled = isEnabled;
    return result;
}

TEST(RenameRules, WithoutAMatchTheNameStays) {
    EXPECT_EQ(applyRenameRules("Wedding", {}, false), "Wedding");
    EXPECT_EQ(applyRenameRules("Wedding", {rule("hawaii", "Hawaii 2019")}, false), "Wedding");
}

TEST(RenameRules, TheWholeNameGivesWay) {
    EXPECT_EQ(applyRenameRules("Big Island HAWAII trip", {rule("hawaii", "Hawaii 2019")}, false), "Hawaii 2019");
}

TEST(RenameRules, CaseIsIgnoredInEveryScript) {
    EXPECT_EQ(applyRenameRules("ÉTÉ à Paris", {rule("été", "Summer")}, false), "Summer");
    EXPECT_EQ(applyRenameRules("ОТПУСК", {rule("отпуск", "Leave")}, false), "Leave");
}

TEST(RenameRules, TheFirstMatchingRuleWins) {
    EXPECT_EQ(applyRenameRules("Rome", {rule("ome", "first"), rule("Rome", "second")}, false), "first");
}

TEST(RenameRules, ADisabledRuleIsPassedOver) {
    EXPECT_EQ(applyRenameRules("Rome", {rule("rome", "off", false), rule("rome", "on")}, false), "on");
    EXPECT_EQ(applyRenameRules("Rome", {rule("rome", "off", false)}, false), "Rome");
}

TEST(RenameRules, AReplacementIsNotSearchedAgain) {
    EXPECT_EQ(applyRenameRules("Rome", {rule("rome", "Paris"), rule("paris", "London")}, false), "Paris");
}

TEST(RenameRules, ARuleWithoutTextNeverMatches) {
    EXPECT_EQ(applyRenameRules("Rome", {rule("", "everything")}, false), "Rome");
}

TEST(RenameRules, AReplacementMayBeEmptyOrHoldASlash) {
    EXPECT_EQ(applyRenameRules("Rome", {rule("rome", "")}, false), "");
    EXPECT_EQ(applyRenameRules("Rome", {rule("rome", "Italy/Rome")}, false), "Italy/Rome");
}

TEST(RenameRules, NamesThatAreNotUtf8GoThrough) {
    EXPECT_EQ(applyRenameRules("R\xf6me", {rule("rome", "x")}, true), "R\xf6me");
    EXPECT_EQ(applyRenameRules("R\xf6me", {rule("R\xf6", "x")}, false), "x");
}

TEST(RenameRules, FloppyModeRenamesOneFamilyOfFolders) {
    struct Case {
        std::string_view name;
        std::string_view renamed;
    };
    constexpr Case kCases[] = {
        {"Floppy Dorno Pics", "Floppy"}, {"FLOPPYDORNO", "Floppy"},        {"dorno on a floppy", "Floppy"},
        {"Floppy y Dorno", "Floppy"},    {"floppy disks", "floppy disks"}, {"Dorno", "Dorno"},
    };
    for (const auto& [name, renamed] : kCases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(applyRenameRules(name, {}, true), renamed);
        EXPECT_EQ(applyRenameRules(name, {}, false), name);
    }
}

TEST(RenameRules, RulesSeeWhatFloppyModeMade) {
    const std::vector rules = {rule("dorno", "by the old name"), rule("FLOPPY", "Disks")};
    EXPECT_EQ(applyRenameRules("Floppy Dorno", rules, true), "Disks");
    EXPECT_EQ(applyRenameRules("Floppy Dorno", rules, false), "by the old name");
}

}  // namespace
}  // namespace vellomar
