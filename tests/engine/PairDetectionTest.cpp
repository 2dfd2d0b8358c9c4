#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/PairDetection.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

TEST(PairDetection, AStemKeyIsTheFolderAndTheNameInLowerCase) {
    EXPECT_EQ(stemKey("/Photos/IMG_1.JPG"), "/Photos/img_1");
    EXPECT_EQ(stemKey("/a/IMG.1.dng"), "/a/img.1");
    EXPECT_EQ(stemKey("/a/NOEXT"), "/a/noext");
    EXPECT_EQ(stemKey("/a/\xC9T\xC9.jpg"), "/a/\xC9t\xC9");
}

TEST(PairDetection, ARawFileAndAJpegOfOneNameAreAPair) {
    const auto found = detectPairs({"/a/IMG_1.JPG", "/a/img_1.dng"});
    EXPECT_THAT(found.rawToJpeg, UnorderedElementsAre(Pair("/a/img_1", "/a/IMG_1.JPG")));
    EXPECT_THAT(found.jpegToRaw, UnorderedElementsAre(Pair("/a/img_1", "/a/img_1.dng")));
    EXPECT_THAT(found.sidecarsByPath, IsEmpty());
    EXPECT_EQ(found.pairs, 1);
}

TEST(PairDetection, FilesOfTwoFoldersAreNoPair) {
    const auto found = detectPairs({"/a/IMG_1.JPG", "/b/IMG_1.DNG", "/A/IMG_1.CR2"});
    EXPECT_THAT(found.rawToJpeg, IsEmpty());
    EXPECT_EQ(found.pairs, 0);
}

TEST(PairDetection, TwoRawFilesOfOneNameAreTwoPairsAndTheLastIsKept) {
    const auto found = detectPairs({"/a/1.dng", "/a/1.jpg", "/a/1.cr2"});
    EXPECT_THAT(found.rawToJpeg, UnorderedElementsAre(Pair("/a/1", "/a/1.jpg")));
    EXPECT_THAT(found.jpegToRaw, UnorderedElementsAre(Pair("/a/1", "/a/1.cr2")));
    EXPECT_EQ(found.pairs, 2);
}

TEST(PairDetection, OfTwoJpegsTheFirstOfTheListCounts) {
    const auto found = detectPairs({"/a/1.jpeg", "/a/1.arw", "/a/1.JPG"});
    EXPECT_THAT(found.rawToJpeg, UnorderedElementsAre(Pair("/a/1", "/a/1.jpeg")));
    EXPECT_EQ(found.pairs, 1);
}

TEST(PairDetection, SidecarsBelongToEveryRawFileOfTheirNameInTheOrderOfTheList) {
    const auto found =
        detectPairs({"/a/1.xmp", "/a/1.NEF", "/a/1.pp3", "/a/1.orf", "/a/1.dop", "/a/1.COS", "/a/1.on1", "/a/2.xmp"});
    const auto sidecars = ElementsAre("/a/1.xmp", "/a/1.pp3", "/a/1.dop", "/a/1.COS", "/a/1.on1");
    EXPECT_THAT(found.sidecarsByPath, UnorderedElementsAre(Pair("/a/1.NEF", sidecars), Pair("/a/1.orf", sidecars)));
    EXPECT_EQ(found.pairs, 0);
}

TEST(PairDetection, ASidecarOfTheWholeNameHasAnotherStem) {
    EXPECT_THAT(detectPairs({"/a/1.dng", "/a/1.dng.xmp"}).sidecarsByPath, IsEmpty());
}

TEST(PairDetection, WithoutARawFileNothingIsLinked) {
    const auto found = detectPairs({"/a/1.jpg", "/a/1.xmp", "/a/2.jpg", "/a/2.heic", "/a/3.nrw", "/a/3.jpg"});
    EXPECT_THAT(found.rawToJpeg, IsEmpty());
    EXPECT_THAT(found.jpegToRaw, IsEmpty());
    EXPECT_THAT(found.sidecarsByPath, IsEmpty());
    EXPECT_EQ(found.pairs, 0);
}

TEST(PairDetection, ALonelyRawFileHasNothing) {
    const auto found = detectPairs({"/a/1.dng"});
    EXPECT_THAT(found.jpegToRaw, IsEmpty());
    EXPECT_THAT(found.sidecarsByPath, IsEmpty());
    EXPECT_EQ(detectPairs({}).pairs, 0);
}

TEST(PairDetection, AFileThatIsListedTwiceCountsTwice) {
    EXPECT_EQ(detectPairs({"/a/1.dng", "/a/1.jpg", "/a/1.dng", "/a/1.jpg"}).pairs, 2);
}

}  // namespace
}  // namespace vellomar
