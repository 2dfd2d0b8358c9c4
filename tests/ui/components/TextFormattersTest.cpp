#include <limits>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

TEST(TextFormatters, SizesAreInGigabytesOrMegabytes) {
    EXPECT_EQ(sizeText(0), "0 MB");
    EXPECT_EQ(sizeText(499'999), "0 MB");
    EXPECT_EQ(sizeText(1'600'000), "2 MB");
    EXPECT_EQ(sizeText(999'999'999), "1000 MB");
    EXPECT_EQ(sizeText(1'000'000'000), "1.0 GB");
    EXPECT_EQ(sizeText(12'345'678'901), "12.3 GB");
}

TEST(TextFormatters, ByteCountsTakeTheLargestUnit) {
    const std::pair<std::int64_t, const char*> kCases[] = {
        {0, "Zero KB"},
        {1, "1 byte"},
        {2, "2 bytes"},
        {999, "999 bytes"},
        {1'000, "1 KB"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {1'250'000, "1.3 MB"},
        {1'949'999, "1.9 MB"},
        {25'000'000, "25 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {1'234'567'890, "1.23 GB"},
        {1'200'000'000, "1.2 GB"},
        {2'000'000'000'000, "2 TB"},
        {3'140'000'000'000'000, "3.14 PB"},
        {std::numeric_limits<std::int64_t>::max(), "9.22 EB"},
    };
    for (const auto& [bytes, text] : kCases)
        EXPECT_EQ(byteCountText(bytes), text) << bytes;
}

TEST(TextFormatters, PercentagesAreWhole) {
    EXPECT_EQ(percentageText(0), "0%");
    EXPECT_EQ(percentageText(0.494), "49%");
    EXPECT_EQ(percentageText(0.496), "50%");
    EXPECT_EQ(percentageText(1), "100%");
}

TEST(TextFormatters, NamesAreShownWhateverTheyHold) {
    EXPECT_EQ(displayText("Zürich 日本 📷"), QStringLiteral("Zürich 日本 📷"));
    EXPECT_EQ(displayText("caf\xE9.jpg"), QStringLiteral("caf\uFFFD.jpg"));
    EXPECT_EQ(displayText("a\nb\tc\x7F\x1B"), QStringLiteral("a␊b␉c␡␛"));
    EXPECT_EQ(displayText(std::string_view("a\0b", 3)), QStringLiteral("a␀b"));
    EXPECT_EQ(displayText(""), "");
}

TEST(TextFormatters, LongPathsAreCutToTheirLastThreeComponents) {
    EXPECT_EQ(shortPath("/"), "/");
    EXPECT_EQ(shortPath(""), "");
    EXPECT_EQ(shortPath("/a/b/c"), "/a/b/c");
    EXPECT_EQ(shortPath("/a/b/c/d"), QStringLiteral("…/b/c/d"));
    EXPECT_EQ(shortPath("/a//b/c/d/"), QStringLiteral("…/b/c/d"));
    EXPECT_EQ(shortPath("a/b/c/d/e"), QStringLiteral("…/c/d/e"));
}

TEST(FolderName, IsTheLastComponentOrElseTheWholePath) {
    EXPECT_EQ(folderName("/"), "/");
    EXPECT_EQ(folderName("/media/card/"), "card");
    EXPECT_EQ(folderName("/media/d\xE9"), "d\uFFFD");
}

}  // namespace
}  // namespace vellomar
