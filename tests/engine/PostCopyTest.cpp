#include <chrono>

#include <gmock/gmock.h>

#include "engine/PostCopy.h"
#include "engine/RunFixture.h"
#include "platform/FileDigest.h"
#include "support/FakeExifTool.h"
#include "support/MediaFiles.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using testing::FakeExifTool;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(PostCopy, TheExtensionDecidesWhatIsConverted) {
    for (const auto* name : {"/a.heic", "/a.HEIC", "/a.heif", "/a.HeIf", "/b.jpg.heic"})
        EXPECT_TRUE(isConvertibleToJpeg(name)) << name;
    for (const auto* name : {"/a.jpeg", "/a.hif", "/heic", "/.heic", "/a.heic.jpg", "/a.avif"})
        EXPECT_FALSE(isConvertibleToJpeg(name)) << name;
}

class PostCopyTest : public RunTest {
protected:
    static Options options() {
        auto options = copyOptions();
        options.namingStyle = NamingStyle::original;
        return options;
    }
    static Options convertingOptions() {
        auto converting = options();
        converting.convertHEICToJPEG = true;
        return converting;
    }

    // A HEIC file below the source folder whose name tells its date.
    std::string heic(const std::string& name) const {
        auto path = testing::makePicture(folder, "source/" + name, {"-size", "64x48", "gradient:"});
        std::filesystem::remove(path + ".source.png");
        return path;
    }

    void runWith(const ExifUtils::ExifTool& exifTool, const Options& chosen) {
        testing::EngineHarness own({.fileSystem = &fileSystem, .clock = &clock, .exifTool = &exifTool});
        own.run({source}, dest, chosen);
        lines = own.observer.allLogLines;
    }

    [[nodiscard]] std::string placed(const std::string& name) const { return dest + "/2023/08/" + name; }

    // The arguments with which ExifTool is called for a copy.
    [[nodiscard]] std::vector<std::string> strip(const std::string& what, const std::string& name) const {
        return {"-api", "LargeFileSupport=1", what, "-overwrite_original", placed(name)};
    }

    std::vector<std::string> lines;
};

constexpr const char* kHeic = "20230814_143021.HEIC";
constexpr const char* kJpeg = "20230814_143021.jpg";

TEST_F(PostCopyTest, AHeicCopyBecomesAJpegInItsPlace) {
    const auto original = heic(kHeic);
    run(convertingOptions());
    EXPECT_THAT(fileLines(),
                ElementsAre("  ↳ HEIC→JPEG: 20230814_143021.jpg", "✓ Copied: 20230814_143021.HEIC → " + placed(kHeic)));
    EXPECT_THAT(contentOf(placed(kJpeg)), ::testing::StartsWith("\xff\xd8\xff"));
    EXPECT_FALSE(exists(placed(kHeic)));
    EXPECT_TRUE(exists(original));
}

TEST_F(PostCopyTest, TheJpegIsDatedAsItsHeic) {
    const auto original = heic(kHeic);
    const auto date = instantFromUnixSeconds(std::int64_t{1'600'000'000});
    ASSERT_TRUE(disk.setModificationDate(original, date));
    run(convertingOptions());
    EXPECT_EQ(disk.status(placed(kJpeg))->modified, date);
}

TEST_F(PostCopyTest, TheUndoEntryAndItsDigestAreThoseOfTheHeic) {
    const auto original = heic(kHeic);
    auto options = convertingOptions();
    options.verifyAfterCopy = true;
    run(options);
    const auto manifest = loadNewestManifest(disk, dest);
    ASSERT_TRUE(manifest && manifest->entries.size() == 1);
    EXPECT_EQ(manifest->entries[0].destination, placed(kHeic));
    EXPECT_EQ(manifest->entries[0].sha256, sha256OfFile(disk, original));
    EXPECT_EQ(harness.state().verifyFailures, 0);
}

TEST_F(PostCopyTest, AFileOfTheJpegsNameIsReplaced) {
    heic(kHeic);
    folder.write("dest/2023/08/20230814_143021.jpg", "an older picture");
    run(convertingOptions());
    EXPECT_THAT(contentOf(placed(kJpeg)), ::testing::StartsWith("\xff\xd8\xff"));
}

TEST_F(PostCopyTest, OtherFilesStayWhatTheyAre) {
    const auto jpeg = testing::makePicture(folder, "source/20230814_143021.jpeg", {"-size", "8x8", "xc:red"});
    run(convertingOptions());
    EXPECT_EQ(contentOf(placed("20230814_143021.jpeg")), contentOf(jpeg));
    EXPECT_THAT(log(), Not(Contains(HasSubstr("HEIC→JPEG"))));
}

TEST_F(PostCopyTest, ACorruptHeicStaysAndNothingIsSaid) {
    photo(kHeic, "no picture at all");
    run(convertingOptions());
    EXPECT_THAT(fileLines(), ElementsAre("✓ Copied: 20230814_143021.HEIC → " + placed(kHeic)));
    EXPECT_EQ(contentOf(placed(kHeic)), "no picture at all");
    EXPECT_FALSE(exists(placed(kJpeg)));
}

TEST_F(PostCopyTest, AJpegThatCannotBeWrittenLeavesTheHeic) {
    const auto original = heic(kHeic);
    folder.write("dest/2023/08/20230814_143021.jpg/a folder", "");
    run(convertingOptions());
    EXPECT_EQ(contentOf(placed(kHeic)), contentOf(original));
    EXPECT_THAT(log(), Not(Contains(HasSubstr("HEIC→JPEG"))));
    EXPECT_THAT(log(), Contains("✓ Copied: 20230814_143021.HEIC → " + placed(kHeic)));
}

TEST_F(PostCopyTest, WithoutADecoderTheHeicStays) {
    const auto original = heic(kHeic);
    testing::EngineHarness own({.fileSystem = &fileSystem, .clock = &clock, .pixelDecoderProgram = folder / "missing"});
    own.run({source}, dest, convertingOptions());
    EXPECT_EQ(contentOf(placed(kHeic)), contentOf(original));
}

TEST_F(PostCopyTest, ADryRunConvertsNothing) {
    heic(kHeic);
    auto options = convertingOptions();
    options.dryRun = true;
    run(options);
    EXPECT_THAT(filesBelow(dest), ElementsAre("_preview_plan.csv"));
}

TEST_F(PostCopyTest, AMovedFileIsNeitherConvertedNorStripped) {
    heic(kHeic);
    auto options = convertingOptions();
    options.moveOriginalsWhenReliable = true;
    options.stripGPS = options.stripAllMetadata = true;
    const FakeExifTool fake("exit 0");
    runWith(fake.tool(), options);
    EXPECT_TRUE(exists(placed(kHeic)));
    EXPECT_FALSE(exists(placed(kJpeg)));
    EXPECT_THAT(fake.calls(), IsEmpty());
}

TEST_F(PostCopyTest, EachStripIsOneCallWithItsArguments) {
    photo("20230814_143021.jpg", "a");
    struct Case {
        bool gps;
        bool all;
        std::vector<std::vector<std::string>> calls;
    };
    const std::vector<Case> cases = {{false, false, {}},
                                     {true, false, {strip("-GPS:all=", kJpeg)}},
                                     {false, true, {strip("-all=", kJpeg)}},
                                     {true, true, {strip("-all=", kJpeg)}}};
    for (const auto& [gps, all, calls] : cases) {
        auto chosen = options();
        chosen.stripGPS = gps;
        chosen.stripAllMetadata = all;
        chosen.conflictPolicy = ConflictPolicy::overwrite;
        const FakeExifTool fake("exit 0");
        runWith(fake.tool(), chosen);
        EXPECT_EQ(fake.calls(), calls) << gps << all;
        EXPECT_THAT(lines, Contains("✓ Copied: 20230814_143021.jpg → " + placed(kJpeg)));
    }
}

TEST_F(PostCopyTest, AStripThatFailsIsNotToldOf) {
    photo("20230814_143021.jpg", "a");
    auto chosen = options();
    chosen.stripAllMetadata = true;
    const FakeExifTool failing("exit 1");
    runWith(failing.tool(), chosen);
    const auto withFailure = lines;
    std::filesystem::remove_all(dest + "/2023");
    const FakeExifTool succeeding("exit 0");
    runWith(succeeding.tool(), chosen);
    EXPECT_EQ(withFailure, lines);
    std::filesystem::remove_all(dest + "/2023");
    const ExifUtils::ExifTool missing(disk, {.resourceFolder = "", .executables = {}});
    runWith(missing, chosen);
    EXPECT_EQ(withFailure, lines);
}

// The JPEG keeps what it has, which is nothing.
TEST_F(PostCopyTest, AfterAConversionTheStripGoesToThePathThatIsGone) {
    heic(kHeic);
    auto chosen = convertingOptions();
    chosen.stripAllMetadata = true;
    const FakeExifTool fake("test -e \"$5\" && exit 0; exit 1");
    runWith(fake.tool(), chosen);
    EXPECT_THAT(fake.calls(), ElementsAre(strip("-all=", kHeic)));
    EXPECT_TRUE(exists(placed(kJpeg)));
}

class StrippedPhoto : public PostCopyTest {
protected:
    void SetUp() override {
        original = testing::makeImage(folder, "source/20230814_143021.jpg",
                                      {"EXIF:GPSLatitude=48.1", "EXIF:GPSLatitudeRef=N", "EXIF:Model=Camera"});
        contentBefore = contentOf(original);
    }

    // Whether the copy still tells where it was taken, and by what camera.
    std::pair<bool, bool> tellsPlaceAndCamera() {
        const auto told = harness.systemExifTool.runExifToolJSON(
            std::vector<std::string>{"-j", "-GPSLatitude", "-Model", placed(kJpeg)}, std::chrono::seconds(30));
        return {told->at(0).contains("GPSLatitude"), told->at(0).contains("Model")};
    }

    std::string original;
    std::string contentBefore;
};

TEST_F(StrippedPhoto, LosesItsPlaceAlone) {
    auto chosen = options();
    chosen.stripGPS = true;
    run(chosen);
    EXPECT_EQ(tellsPlaceAndCamera(), std::pair(false, true));
    EXPECT_EQ(contentOf(original), contentBefore);
}

TEST_F(StrippedPhoto, LosesEverything) {
    auto chosen = options();
    chosen.stripAllMetadata = true;
    run(chosen);
    EXPECT_EQ(tellsPlaceAndCamera(), std::pair(false, false));
    EXPECT_EQ(contentOf(original), contentBefore);
}

// With a folder that is sorted into itself, source and destination are one file.
TEST_F(PostCopyTest, TheSourceIsNeverTouched) {
    folder.makeFolder("dest/2023/08");
    const auto original =
        testing::makePicture(folder, "dest/2023/08/20230814_143021.HEIC", {"-size", "64x48", "xc:red"});
    std::filesystem::remove(original + ".source.png");
    const auto before = contentOf(original);
    auto chosen = convertingOptions();
    chosen.stripAllMetadata = true;
    const FakeExifTool fake("exit 0");
    testing::EngineHarness own({.fileSystem = &fileSystem, .clock = &clock, .exifTool = &fake.tool()});
    own.run({dest + "/2023/08"}, dest, chosen);
    EXPECT_THAT(own.observer.allLogLines, Contains("✓ Copied: 20230814_143021.HEIC → " + original));
    EXPECT_EQ(contentOf(original), before);
    EXPECT_FALSE(exists(placed(kJpeg)));
    EXPECT_THAT(fake.calls(), IsEmpty());
}

}  // namespace
}  // namespace vellomar
