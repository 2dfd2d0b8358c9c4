#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/model/DuplicateAction.h"

namespace vellomar {
namespace {

TEST(DuplicateAction, EachCaseHasItsWords) {
    EXPECT_EQ(rawText(DuplicateAction::log), "Log Only");
    EXPECT_EQ(rawText(DuplicateAction::moveToBin), "Move to _Duplicates");
    EXPECT_EQ(rawText(DuplicateAction::skip), "Skip Duplicate");
}

TEST(DuplicateAction, ListsAllItsCasesInOrder) {
    EXPECT_THAT(kDuplicateActions,
                ::testing::ElementsAre(DuplicateAction::log, DuplicateAction::moveToBin, DuplicateAction::skip));
}

TEST(DuplicateAction, ComesBackFromItsWords) {
    for (const auto action : kDuplicateActions)
        EXPECT_EQ(duplicateActionFrom(rawText(action)), action) << rawText(action);
}

TEST(DuplicateAction, OtherWordsNameNoAction) {
    for (const char* text : {"", "log", "Log only", "moveToBin", "Move to Duplicates", "Skip"})
        EXPECT_EQ(duplicateActionFrom(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vellomar
