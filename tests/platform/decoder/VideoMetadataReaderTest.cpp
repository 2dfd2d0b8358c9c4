#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/decoder/worker/metadata/VideoMetadataReader.h"
#include "support/MediaFiles.h"
#include "support/RunTool.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::IsEmpty;
using testing::makeVideo;

class VideoMetadataReader : public ::testing::Test {
protected:
    static void SetUpTestSuite() { prepareVideoLibrary(); }

    static VideoMetadata metadataOf(const std::string& path) {
        const auto content = contentOf(path);
        return readVideoMetadata(std::as_bytes(std::span(content)));
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
};

TEST_F(VideoMetadataReader, TheTimeOfCreationIsTheCreationDate) {
    const std::map<std::string, std::string> formats = {{"a.mp4", "mov,mp4,m4a,3gp,3g2,mj2"},
                                                        {"a.mov", "mov,mp4,m4a,3gp,3g2,mj2"},
                                                        {"a.3gp", "mov,mp4,m4a,3gp,3g2,mj2"},
                                                        {"a.mkv", "matroska,webm"}};
    for (const auto& [name, format] : formats) {
        SCOPED_TRACE(name);
        const auto metadata = metadataOf(makeVideo(folder, name, {"creation_time=2021-03-04T05:06:07Z"}));
        EXPECT_EQ(metadata.creationDate, "2021-03-04T05:06:07+0000");
        ASSERT_EQ(metadata.formats.size(), 1U);
        EXPECT_EQ(metadata.formats[0].identifier, format);
        EXPECT_THAT(metadata.formats[0].texts, Contains("2021-03-04T05:06:07+0000"));
    }
}

TEST_F(VideoMetadataReader, ADateComesBeforeATimeOfCreation) {
    const auto metadata =
        metadataOf(makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z", "date=2020-01-02 03:04:05"}));
    EXPECT_EQ(metadata.creationDate, "2020-01-02 03:04:05");
    EXPECT_THAT(metadata.formats.at(0).texts, Contains("2021-03-04T05:06:07+0000"));
}

TEST_F(VideoMetadataReader, ApplesDateComesBeforeAll) {
    const auto path = makeVideo(folder, "a.mov", {"creation_time=2021-03-04T05:06:07Z", "date=2020-01-02 03:04:05"});
    testing::runTool({"exiftool", "-q", "-overwrite_original", "-Keys:CreationDate=2019:02:12 15:27:12+08:00", path});
    EXPECT_EQ(metadataOf(path).creationDate, "2019-02-12T15:27:12+0800");
}

TEST_F(VideoMetadataReader, AnAviTellsItsDate) {
    const auto metadata = metadataOf(makeVideo(folder, "a.avi", {"date=2021-03-04 05:06:07"}));
    EXPECT_EQ(metadata.creationDate, "2021-03-04 05:06:07");
    EXPECT_EQ(metadata.formats.at(0).identifier, "avi");
}

TEST_F(VideoMetadataReader, TracksStandBehindTheirContainer) {
    const auto path = folder / "a.mkv";
    testing::runTool({"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=red:s=176x144:d=0.2", "-metadata",
                      "comment=of the container", "-metadata:s:v:0", "comment=of the track", "-c:v", "mpeg4", path});
    const auto texts = metadataOf(path).formats.at(0).texts;
    const auto container = std::ranges::find(texts, "of the container");
    const auto track = std::ranges::find(texts, "of the track");
    ASSERT_NE(track, texts.end());
    EXPECT_LT(container, track);
}

TEST_F(VideoMetadataReader, ATransportStreamTellsNothing) {
    const auto metadata = metadataOf(makeVideo(folder, "a.mts", {"creation_time=2021-03-04T05:06:07Z"}));
    EXPECT_EQ(metadata.creationDate, std::nullopt);
}

TEST_F(VideoMetadataReader, WhatIsNoVideoHasNoMetadata) {
    for (const std::string content : {"", "x", "no video at all, only text\n", "\x1a\x45\xdf\xa3", "RIFF    AVI "}) {
        const auto metadata = readVideoMetadata(std::as_bytes(std::span(content)));
        EXPECT_EQ(metadata.creationDate, std::nullopt) << content;
    }
}

TEST_F(VideoMetadataReader, NoCutHarms) {
    for (const auto* name : {"a.mp4", "a.mkv", "a.avi"}) {
        SCOPED_TRACE(name);
        const auto content = contentOf(makeVideo(folder, name, {"creation_time=2021-03-04T05:06:07Z"}));
        const auto step = std::max<std::size_t>(1, content.size() / 100);
        for (std::size_t length = 0; length < content.size(); length += step) {
            const auto cut = readVideoMetadata(std::as_bytes(std::span(content)).first(length));
            EXPECT_EQ(cut.creationDate.value_or("2021-03-04T05:06:07+0000"), "2021-03-04T05:06:07+0000") << length;
        }
    }
}

}  // namespace
}  // namespace vellomar
