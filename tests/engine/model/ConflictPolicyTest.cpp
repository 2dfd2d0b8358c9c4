#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/model/ConflictPolicy.h"

namespace vellomar {
namespace {

TEST(ConflictPolicy, EachCaseHasItsWord) {
    EXPECT_EQ(rawText(ConflictPolicy::skip), "Skip");
    EXPECT_EQ(rawText(ConflictPolicy::rename), "Rename");
    EXPECT_EQ(rawText(ConflictPolicy::overwrite), "Overwrite");
}

TEST(ConflictPolicy, ListsAllItsCasesInOrder) {
    EXPECT_THAT(kConflictPolicies,
                ::testing::ElementsAre(ConflictPolicy::skip, ConflictPolicy::rename, ConflictPolicy::overwrite));
}

TEST(ConflictPolicy, ComesBackFromItsWord) {
    for (const auto policy : kConflictPolicies)
        EXPECT_EQ(conflictPolicyFrom(rawText(policy)), policy) << rawText(policy);
}

TEST(ConflictPolicy, OtherWordsNameNoPolicy) {
    for (const char* text : {"", "skip", "RENAME", "Overwrite ", " Skip", "Replace"})
        EXPECT_EQ(conflictPolicyFrom(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vellomar
