#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/main/LogLines.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

TEST(LogLines, TabsShowLinesByTheirBeginning) {
    struct Case {
        const char* line;
        bool isError;
        bool isMoved;
    };
    constexpr Case kCases[] = {
        {"✗ Failed: a.jpg", true, false},         {"⚠ Integrity issues found:", true, false},
        {"✓ Copied: a.jpg", false, true},         {"[DRY] COPY a.jpg", false, true},
        {"  ✗ Unreadable: /a", false, false},     {"Scan: 5 files", false, false},
        {"♻ Removed duplicate: a", false, false}, {"", false, false},
    };
    for (const auto& [line, isError, isMoved] : kCases) {
        SCOPED_TRACE(line);
        EXPECT_TRUE(isShown(line, LogFilter::all));
        EXPECT_EQ(isShown(line, LogFilter::errors), isError);
        EXPECT_EQ(isShown(line, LogFilter::moved), isMoved);
    }
}

TEST(LogLines, ColoursFollowTheFirstRuleThatHolds) {
    struct Case {
        const char* line;
        const char* text;
        const char* bar;
    };
    constexpr Case kCases[] = {
        {"✗ Failed: Dup.jpg", "C0392B", "C0392B"},
        {"✓ Copied: Dup.jpg", "3D8B5E", "3D8B5E"},
        {"Copied 5", "3D8B5E", "3D8B5E"},
        {"Moved 5", "3D8B5E", "3D8B5E"},
        {"⚠ Could not move duplicate: dup:", "B8870A", "B8870A"},
        {"Duplicate group sha=ab", "B8870A", "B8870A"},
        {"≈ Near-dup (dist=3): Dup.jpg", "B8870A", "B8870A"},
        {"  dup: /a/b.jpg", "B8870A", "1E1E1E"},
        {"  dup: /Dup/b.jpg", "B8870A", "B8870A"},
        {"≈ Near-dup (dist=3): a", "E8E8E0", "1E1E1E"},
        {"  ✗ Unreadable: /a", "E8E8E0", "1E1E1E"},
        {"", "E8E8E0", "1E1E1E"},
    };
    for (const auto& [line, text, bar] : kCases) {
        SCOPED_TRACE(line);
        EXPECT_EQ(coloursOf(line).text, hexColour(text));
        EXPECT_EQ(coloursOf(line).bar, hexColour(bar));
    }
}

}  // namespace
}  // namespace vellomar
