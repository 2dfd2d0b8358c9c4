#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/FakeMetadataReader.h"
#include "dates/LocalInstant.h"
#include "dates/SiblingYear.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::local;

const std::string kFile = "/scans/undated.jpg";

// Neighbours of kFile, and what their metadata says.
class Neighbours {
public:
    void add(const std::string& name, int year) { add(name, local(year, 3, 1, 12)); }
    void add(const std::string& name, Instant date) {
        reader.images["/scans/" + name] = {date, "EXIF DateTimeOriginal"};
        entries.push_back("/scans/" + name);
    }

    std::optional<int> lend(const std::string& file = kFile) { return years.siblingYear(entries, file, reader); }

    testing::FakeMetadataReader reader;
    std::vector<std::string> entries;
    SiblingYears years;
};

TEST(SiblingYear, TheCommonestYearIsLent) {
    Neighbours neighbours;
    neighbours.add("d.jpg", 2021);
    for (const auto* name : {"a.jpg", "b.jpg", "c.jpg"})
        neighbours.add(name, 2019);
    EXPECT_EQ(neighbours.lend(), 2019);
}

TEST(SiblingYear, OfEquallyCommonYearsTheEarlierIsLent) {
    Neighbours neighbours;
    neighbours.add("a.jpg", 2021);
    neighbours.add("b.jpg", 2019);
    neighbours.add("c.jpg", 2020);
    EXPECT_EQ(neighbours.lend(), 2019);
}

TEST(SiblingYear, TheFileItselfHasNoSay) {
    Neighbours neighbours;
    neighbours.add("undated.jpg", 2019);
    EXPECT_EQ(neighbours.lend(), std::nullopt);
    EXPECT_TRUE(neighbours.reader.calls.empty());
}

TEST(SiblingYear, OnlyImagesOfFiveExtensionsAreAsked) {
    for (const auto* name : {"a.jpg", "a.jpeg", "a.png", "a.tif", "a.tiff", "A.JPG", "b.Tiff"}) {
        SCOPED_TRACE(name);
        Neighbours neighbours;
        neighbours.add(name, 2019);
        EXPECT_EQ(neighbours.lend(), 2019);
    }
    for (const auto* name :
         {"a.dng", "a.cr2", "a.heic", "a.mov", "a.mp4", "a.xmp", "a.webp", "jpg", ".jpg", "folder"}) {
        SCOPED_TRACE(name);
        Neighbours neighbours;
        neighbours.add(name, 2019);
        EXPECT_EQ(neighbours.lend(), std::nullopt);
        EXPECT_TRUE(neighbours.reader.calls.empty());
    }
}

TEST(SiblingYear, OnlyTheMetadataOfAnImageIsAsked) {
    Neighbours neighbours;
    neighbours.entries = {"/scans/20190301.jpg"};
    neighbours.reader.sidecars["/scans/20190301.jpg"] = {local(2019, 3, 1), "XMP Sidecar", 97};
    EXPECT_EQ(neighbours.lend(), std::nullopt);
    EXPECT_THAT(neighbours.reader.calls, ElementsAre("image /scans/20190301.jpg"));
}

TEST(SiblingYear, YearsBeforeNineteenNinetyDoNotCount) {
    Neighbours neighbours;
    neighbours.add("a.jpg", 1989);
    neighbours.add("b.jpg", 1989);
    EXPECT_EQ(neighbours.lend(), std::nullopt);
    neighbours.add("c.jpg", 1990);
    EXPECT_EQ(neighbours.lend(), 1990);
}

TEST(SiblingYear, TheYearIsThatOfLocalTime) {
    const testing::ScopedTimeZone zone("Pacific/Auckland");
    Neighbours neighbours;
    neighbours.add("a.jpg", local(2020, 1, 1, 0, 30));
    EXPECT_EQ(neighbours.lend(), 2020);
}

TEST(SiblingYear, AFoldersImagesAreReadOnceForAllItsFiles) {
    Neighbours neighbours;
    neighbours.add("a.jpg", 2019);
    neighbours.entries.emplace_back("/scans/broken.jpg");
    for (const auto* file : {"/scans/undated.jpg", "/scans/other.bin", "/scans/third.mov"})
        EXPECT_EQ(neighbours.lend(file), 2019) << file;
    EXPECT_THAT(neighbours.reader.calls, ElementsAre("image /scans/a.jpg", "image /scans/broken.jpg"));
}

TEST(SiblingYear, WhoeverAsksHasNoSayThoughHisYearIsKnown) {
    Neighbours neighbours;
    neighbours.add("a.jpg", 2019);
    EXPECT_EQ(neighbours.lend(), 2019);
    EXPECT_EQ(neighbours.lend("/scans/a.jpg"), std::nullopt);
}

TEST(SiblingYear, AnotherFolderIsAskedAnew) {
    Neighbours neighbours;
    neighbours.add("a.jpg", 2019);
    EXPECT_EQ(neighbours.lend(), 2019);
    neighbours.entries = {"/card/a.jpg"};
    neighbours.reader.images["/card/a.jpg"] = {local(2021, 3, 1), "EXIF DateTimeOriginal"};
    EXPECT_EQ(neighbours.lend("/card/undated.jpg"), 2021);
}

TEST(SiblingYear, AnEmptyFolderLendsNothing) {
    EXPECT_EQ(Neighbours().lend(), std::nullopt);
}

}  // namespace
}  // namespace vellomar
