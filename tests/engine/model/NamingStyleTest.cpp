#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/model/NamingStyle.h"

namespace vellomar {
namespace {

TEST(NamingStyle, EachCaseHasItsText) {
    EXPECT_EQ(rawText(NamingStyle::original), "original");
    EXPECT_EQ(rawText(NamingStyle::recommended), "recommended");
    EXPECT_EQ(rawText(NamingStyle::cleanDate), "cleanDate");
    EXPECT_EQ(rawText(NamingStyle::archival), "archival");
    EXPECT_EQ(rawText(NamingStyle::custom), "custom");
}

TEST(NamingStyle, StandsInTheOrderOfTheTabs) {
    EXPECT_THAT(kNamingStyles,
                ::testing::ElementsAre(NamingStyle::original, NamingStyle::recommended, NamingStyle::cleanDate,
                                       NamingStyle::archival, NamingStyle::custom));
}

TEST(NamingStyle, ComesBackFromItsText) {
    for (const auto style : kNamingStyles)
        EXPECT_EQ(namingStyleFrom(rawText(style)), style) << rawText(style);
}

TEST(NamingStyle, OtherTextsNameNoStyle) {
    for (const char* text : {"", "Original", "cleandate", "Clean Date", "custom "})
        EXPECT_EQ(namingStyleFrom(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vellomar
