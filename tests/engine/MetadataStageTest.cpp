#include <algorithm>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "engine/RunFixture.h"
#include "support/FakeExifTool.h"
#include "support/MediaFiles.h"

namespace vellomar {
namespace {

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::EngineHarness;
using testing::FakeExifTool;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Tells of each file that it was shot at one and the same time by one and the same camera.
constexpr std::string_view kTellingAll = R"(
before='['
for word in "$@"; do
    case "$word" in /*)
        printf '%s{"SourceFile":"%s","DateTimeOriginal":"2023:08:14 14:30:21",' "$before" "$word"
        printf '"MediaCreateDate":"2021:03:04 05:06:07","Make":"Canon","Model":"EOS"}'
        before=',' ;;
    esac
done
echo ']')";

// Says that every volume is far away.
class RemoteVolumes final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;
    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& /*path*/) override { return false; }
};

class MetadataStage : public RunTest {
protected:
    static Options withExifTool(Options options) {
        options.useExifToolForImages = options.useExifToolForVideo = true;
        options.includeVideos = options.includeOther = true;
        return options;
    }

    void runWith(EngineHarness& runner, const Options& options) { runner.run({source}, dest, options); }

    void photos(int count) {
        for (int i = 0; i < count; ++i)
            photo(fmt::format("{:03}.jpg", i), "x");
    }

    // How many files each start of ExifTool was given.
    [[nodiscard]] std::vector<std::ptrdiff_t> filesPerCall() const {
        std::vector<std::ptrdiff_t> counts;
        for (const auto& call : tool.calls())
            counts.push_back(std::ranges::count_if(call, [](const auto& word) { return word.starts_with('/'); }));
        return counts;
    }

    FakeExifTool tool{kTellingAll};
    EngineHarness engine{{.fileSystem = &fileSystem, .clock = &clock, .exifTool = &tool.tool()}};
    const std::vector<std::string>& lines = engine.observer.allLogLines;
};

TEST_F(MetadataStage, WhatExifToolTellsReachesTheDecisions) {
    photo("a.jpg", "x");
    photo("b.mov", "x");
    runWith(engine, withExifTool(dryOptions()));
    EXPECT_THAT(lines, Contains("ExifTool batch: 2 dates, 2 cameras from 2 files"));
    EXPECT_THAT(lines, Contains(HasSubstr("chosen=ExifTool DateTimeOriginal(100)")));
    EXPECT_THAT(lines, Contains(HasSubstr("chosen=ExifTool MediaCreateDate(90)")));
    ASSERT_EQ(engine.state().previewRows.size(), 2U);
    for (const auto& row : engine.state().previewRows)
        EXPECT_EQ(row.cameraModel, "Canon EOS");
}

TEST_F(MetadataStage, TellsHowFarItIs) {
    photo("a.jpg", "x");
    photo("note.txt", "x");
    runWith(engine, withExifTool(dryOptions()));
    EXPECT_THAT(engine.observer.statusHistory,
                ElementsAre("Scanning...", "Scanning…", "Checking integrity...", "Reading EXIF metadata…",
                            "Reading EXIF metadata… 1/1", "EXIF complete. Processing files…", "Done"));
    EXPECT_THAT(engine.observer.progressHistory, ElementsAre(0.0, 0.15, 0.15, 1.0));
}

TEST_F(MetadataStage, ProgressIsTheSumOfImagesAndVideos) {
    photos(250);
    photo("b.mov", "x");
    runWith(engine, withExifTool(dryOptions()));
    EXPECT_THAT(engine.observer.statusHistory, Contains("Reading EXIF metadata… 251/251"));
    EXPECT_THAT(engine.observer.progressHistory, Contains(0.15));
    // 200 and 250 images, each without or with the video; the two kinds come to their ends in any order.
    EXPECT_THAT(engine.observer.statusHistory,
                Contains(AnyOf("Reading EXIF metadata… 200/251", "Reading EXIF metadata… 201/251")));
}

TEST_F(MetadataStage, OneKindAloneIsReadWhereOnlyItIsWanted) {
    const auto image = photo("a.jpg", "x");
    const auto video = photo("b.mov", "x");
    auto options = withExifTool(dryOptions());
    options.useExifToolForVideo = false;
    runWith(engine, options);
    EXPECT_THAT(tool.calls(), ElementsAre(Contains(image)));
    EXPECT_THAT(lines, Contains("ExifTool batch: 1 dates, 1 cameras from 1 files"));
    options.useExifToolForVideo = true;
    options.useExifToolForImages = false;
    runWith(engine, options);
    EXPECT_THAT(tool.calls(), ElementsAre(Contains(image), Contains(video)));
}

TEST_F(MetadataStage, OtherFilesAreNeverRead) {
    photo("note.txt", "x");
    runWith(engine, withExifTool(dryOptions()));
    EXPECT_THAT(tool.calls(), IsEmpty());
    EXPECT_THAT(lines, Contains("ExifTool batch: 0 dates, 0 cameras from 0 files"));
    EXPECT_THAT(engine.observer.statusHistory, Not(Contains("Reading EXIF metadata… 0/0")));
}

TEST_F(MetadataStage, IsAbsentWhereNeitherKindIsWanted) {
    photo("a.jpg", "x");
    runWith(engine, dryOptions());
    EXPECT_THAT(tool.calls(), IsEmpty());
    EXPECT_THAT(lines, Not(Contains(HasSubstr("ExifTool batch"))));
    EXPECT_THAT(engine.observer.statusHistory, Not(Contains(HasSubstr("EXIF"))));
    EXPECT_THAT(engine.observer.progressHistory, ElementsAre(0.0, 1.0));
}

TEST_F(MetadataStage, LocalFilesAreReadByTheTwoHundred) {
    photos(450);
    runWith(engine, withExifTool(dryOptions()));
    EXPECT_THAT(filesPerCall(), ElementsAre(200, 200, 50));
}

TEST_F(MetadataStage, FilesOnNetworkStorageAreReadByTheHundred) {
    photos(250);
    auto options = withExifTool(dryOptions());
    options.storageIsNetwork = true;
    runWith(engine, options);
    EXPECT_THAT(filesPerCall(), ElementsAre(100, 100, 50));
}

TEST_F(MetadataStage, SoAreFilesOnAVolumeThatIsNotLocal) {
    photos(150);
    RemoteVolumes remote(fileSystem);
    EngineHarness far({.fileSystem = &remote, .clock = &clock, .exifTool = &tool.tool()});
    runWith(far, withExifTool(dryOptions()));
    EXPECT_THAT(filesPerCall(), ElementsAre(100, 50));
}

TEST_F(MetadataStage, WithoutExifToolTheRunGoesOn) {
    photo("20230814_143021.jpg", "x");
    const ExifUtils::ExifTool none(disk, {.resourceFolder = "", .executables = {}});
    EngineHarness alone({.fileSystem = &fileSystem, .clock = &clock, .exifTool = &none});
    runWith(alone, withExifTool(copyOptions()));
    EXPECT_THAT(alone.observer.allLogLines, Contains("ExifTool batch: 0 dates, 0 cameras from 1 files"));
    EXPECT_EQ(alone.state().statusText, "Done");
    EXPECT_THAT(alone.observer.allLogLines, Contains(HasSubstr("chosen=Filename(")));
}

TEST_F(MetadataStage, ACancelledRunReadsOnAndStopsAtItsFirstFile) {
    photos(250);
    engine.cancelWhenStatus("Reading EXIF metadata… 200/250");
    runWith(engine, withExifTool(copyOptions()));
    EXPECT_THAT(filesPerCall(), ElementsAre(200, 50));
    const auto batch = std::ranges::find(lines, "ExifTool batch: 250 dates, 250 cameras from 250 files");
    const auto stop = std::ranges::find(lines, "Cancellation requested. Stopping...");
    ASSERT_NE(batch, lines.end());
    EXPECT_LT(batch, stop);
    EXPECT_NE(stop, lines.end());
    EXPECT_EQ(engine.state().statusText, "Cancelled");
    EXPECT_EQ(engine.state().progress, 0.15);
    EXPECT_THAT(filesBelow(dest), IsEmpty());
}

TEST_F(MetadataStage, WhenTheEngineGoesNoFurtherBatchIsBegun) {
    photos(450);
    engine.engine->startRun({source}, dest, withExifTool(dryOptions()));
    engine.mainActor.runUntil([&] { return !tool.calls().empty(); });
    engine.engine.reset();
    EXPECT_LT(tool.calls().size(), 3U);
}

TEST_F(MetadataStage, FilesSayThemselvesWhatExifToolDoesNot) {
    photo("a.jpg", testing::contentOf(testing::makeImage(
                       folder, "made.jpg",
                       {"EXIF:DateTimeOriginal=2019:05:06 07:08:09", "EXIF:Make=SONY", "EXIF:Model=ILCE-7M3"})));
    runWith(engine, dryOptions());
    EXPECT_THAT(lines, Contains(HasSubstr("chosen=EXIF DateTimeOriginal(95)")));
    ASSERT_EQ(engine.state().previewRows.size(), 1U);
    EXPECT_EQ(engine.state().previewRows[0].cameraModel, "SONY ILCE-7M3");
}

}  // namespace
}  // namespace vellomar
