#include <gtest/gtest.h>

#include "naming/NamingStyleTexts.h"

namespace vellomar {
namespace {

TEST(NamingStyleTexts, EachStyleHasItsSampleAndItsDescription) {
    struct Case {
        NamingStyle style;
        std::string_view sample;
        std::string_view description;
    };
    constexpr Case kCases[] = {
        {NamingStyle::original, "IMG_4821.JPG", "Keeps original filenames. Folders: year/month/event."},
        {NamingStyle::recommended, "2025-06-14_143052_IMG_4821.jpg",
         "Adds date prefix to filename. Month folder is human-readable."},
        {NamingStyle::cleanDate, "2025-06-14_IMG_4821.jpg", "Renames to timestamp only. Month folder spelled out."},
        {NamingStyle::archival, "20250614T143052_iPhone14Pro_IMG_4821.jpg",
         "Flat date folders, no event nesting. Best for Lightroom."},
        {NamingStyle::custom, "2024-IMG_4821", "Build your own format using tokens like {YYYY}, {Month}, {original}."},
    };
    for (const auto& [style, sample, description] : kCases) {
        SCOPED_TRACE(rawText(style));
        EXPECT_EQ(sampleOf(style, "{YYYY}-{original}"), sample);
        EXPECT_EQ(descriptionOf(style), description);
    }
}

TEST(NamingStyleTexts, AnEmptyTemplateShowsTheDefaultOne) {
    EXPECT_EQ(sampleOf(NamingStyle::custom, ""), "2024/06 - June/Vacation/2024-06-14_143021_IMG_4821.jpg");
}

}  // namespace
}  // namespace vellomar
