#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/main/Banner.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

constexpr RunEstimate kEstimate{10, 2'000'000'000, 5};

TEST(Banner, SameFolderGoesByTheStandardisedPath) {
    EXPECT_TRUE(isSameFolder({"/a", "/b"}, "/b"));
    EXPECT_TRUE(isSameFolder({"/a/./c/../b/"}, "/a//b"));
    EXPECT_TRUE(isSameFolder({"/"}, "//"));
    EXPECT_FALSE(isSameFolder({"/a"}, "/a/b"));
    EXPECT_FALSE(isSameFolder({"/a"}, ""));
    EXPECT_FALSE(isSameFolder({}, "/a"));
}

TEST(Banner, LowSpaceNeedsADestinationAnEstimateAndAKnownRoom) {
    EXPECT_EQ(lowSpaceText("/d", kEstimate, 999'000'000), "Only 999 MB free — need 2.0 GB");
    EXPECT_EQ(lowSpaceText("/d", kEstimate, 1'999'999'999), "Only 2.0 GB free — need 2.0 GB");
    EXPECT_EQ(lowSpaceText("/d", kEstimate, 2'000'000'000), "");
    EXPECT_EQ(lowSpaceText("/d", kEstimate, std::nullopt), "");
    EXPECT_EQ(lowSpaceText("/d", std::nullopt, 1), "");
    EXPECT_EQ(lowSpaceText("", kEstimate, 1), "");
}

// From the least important to the most: each one hides all before it.
TEST(Banner, TheFirstThatHoldsIsShown) {
    PublishedState state;
    EXPECT_EQ(bannerFor(state, false, ""), std::nullopt);

    state.integrityReport.totalScanned = 7;
    EXPECT_EQ(bannerFor(state, false, ""),
              (Banner{"checkmark.shield.fill", hexColour("3D8B5E"), "7 files passed integrity check."}));

    EXPECT_EQ(bannerFor(state, false, "Only 1 MB free"),
              (Banner{"externaldrive.badge.exclamationmark", hexColour("F5C518"), "Only 1 MB free"}));

    state.verifyFailures = 2;
    EXPECT_EQ(bannerFor(state, false, "Only 1 MB free"),
              (Banner{"xmark.shield.fill", hexColour("FF4444"),
                      "2 copy verification failure(s) — source files were kept safe."}));

    state.integrityReport.suspectedCorrupt = {"a", "b", "c"};
    EXPECT_EQ(bannerFor(state, false, "Only 1 MB free"),
              (Banner{"exclamationmark.triangle.fill", hexColour("FF8C00"),
                      "3 suspected corrupt file(s) (zero bytes). Check log."}));

    state.integrityReport.unreadableFiles = {"/a"};
    EXPECT_EQ(bannerFor(state, false, "Only 1 MB free"),
              (Banner{"exclamationmark.shield.fill", hexColour("FF4444"),
                      "1 unreadable file(s) detected. Check the log for details."}));

    EXPECT_EQ(bannerFor(state, true, "Only 1 MB free"), (Banner{"exclamationmark.triangle.fill", hexColour("FF4444"),
                                                                "Source and destination are the same folder."}));
}

}  // namespace
}  // namespace vellomar
