#include <map>

#include <gtest/gtest.h>

#include "dates/EmbeddedMetadataReader.h"
#include "dates/LocalInstant.h"
#include "platform/LinuxFileSystem.h"
#include "support/DecoderProgram.h"
#include "support/ForwardingFileSystem.h"
#include "support/MediaFiles.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::local;
using testing::makeImage;

// Counts how often each file is opened.
class OpenCounter final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                      bool followSymlink) override {
        ++opened[path];
        return real().openForReading(path, followSymlink);
    }
    std::map<std::string, int> opened;
};

class EmbeddedMetadata : public ::testing::Test {
protected:
    testing::LeavesNothingBehind census;
    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    LinuxFileSystem disk;
    OpenCounter fileSystem{disk};
    EmbeddedMetadataReader reader{fileSystem, testing::decoderProgram()};
    const std::vector<std::string> tags = {"EXIF:DateTimeOriginal=2023:08:14 14:30:21", "EXIF:Make=SONY",
                                           "EXIF:Model=ILCE-7M3"};
};

TEST_F(EmbeddedMetadata, AnImageTellsItsDateAndItsCamera) {
    const auto path = makeImage(folder, "a.jpg", tags);
    EXPECT_EQ(reader.readImageDate(path), (ImageEXIFResult{local(2023, 8, 14, 14, 30, 21), "EXIF DateTimeOriginal"}));
    EXPECT_EQ(reader.readImageCamera(path), "SONY ILCE-7M3");
}

TEST_F(EmbeddedMetadata, AVideoTellsItsDate) {
    const auto path = testing::makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z"});
    const auto candidate = reader.readVideoDate(path);
    ASSERT_TRUE(candidate.has_value());
    EXPECT_EQ(unixSeconds(candidate->date), 1'614'834'367);
    EXPECT_EQ(candidate->source, "AVFoundation commonCreationDate");
    EXPECT_EQ(candidate->score, 75);
    EXPECT_EQ(reader.readImageCamera(path), std::nullopt);
}

TEST_F(EmbeddedMetadata, AFileIsOpenedOnceForItsDateAndItsCamera) {
    const auto image = makeImage(folder, "a.jpg", tags);
    const auto video = testing::makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z"});
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(reader.readImageDate(image).has_value());
        EXPECT_TRUE(reader.readImageCamera(image).has_value());
    }
    EXPECT_TRUE(reader.readVideoDate(video).has_value());
    EXPECT_FALSE(reader.readImageCamera(video).has_value());
    EXPECT_EQ(fileSystem.opened[image], 1);
    EXPECT_EQ(fileSystem.opened[video], 1);
}

TEST_F(EmbeddedMetadata, AnotherFileIsNotTakenForTheOneBefore) {
    const auto first = makeImage(folder, "a.jpg", tags);
    const auto second = makeImage(folder, "b.jpg", {"EXIF:DateTimeOriginal=2019:01:02 03:04:05"});
    EXPECT_EQ(reader.readImageDate(first)->date, local(2023, 8, 14, 14, 30, 21));
    EXPECT_EQ(reader.readImageDate(second)->date, local(2019, 1, 2, 3, 4, 5));
    EXPECT_EQ(reader.readImageCamera(second), std::nullopt);
    EXPECT_EQ(reader.readImageDate(first)->date, local(2023, 8, 14, 14, 30, 21));
}

TEST_F(EmbeddedMetadata, AVideosNameMayStandOverAnImage) {
    const auto path = folder.write("a.mov", testing::contentOf(makeImage(folder, "a.jpg", tags)));
    EXPECT_EQ(reader.readVideoDate(path), std::nullopt);
    EXPECT_EQ(reader.readImageCamera(path), "SONY ILCE-7M3");
}

TEST_F(EmbeddedMetadata, ASidecarIsReadBesideItsImage) {
    folder.write("a.xmp", R"(<x xmp:CreateDate="2020-01-02T03:04:05+02:00"/>)");
    EXPECT_EQ(reader.sidecarCandidate(folder / "a.jpg"),
              (DateCandidate{local(2020, 1, 2, 3, 4, 5), "XMP Sidecar", 97}));
}

TEST_F(EmbeddedMetadata, WhatCannotBeReadTellsNothing) {
    for (const auto& path : {folder / "missing.jpg", folder.makeFolder("folder.jpg"), folder.write("empty.jpg", ""),
                             folder.write("text.jpg", "no image")}) {
        EXPECT_EQ(reader.readImageDate(path), std::nullopt) << path;
        EXPECT_EQ(reader.readVideoDate(path), std::nullopt) << path;
        EXPECT_EQ(reader.readImageCamera(path), std::nullopt) << path;
    }
}

TEST_F(EmbeddedMetadata, NamesAreBytes) {
    const auto content = testing::contentOf(makeImage(folder, "a.jpg", tags));
    for (const std::string name : {"-rf.jpg", "with blank\nand line.jpg", "\xff\xfe.jpg", "quote'\".jpg"})
        EXPECT_EQ(reader.readImageCamera(folder.write(name, content)), "SONY ILCE-7M3") << name;
}

TEST_F(EmbeddedMetadata, ReadersAreOpenedForEachRun) {
    EmbeddedMetadataReaders readers(fileSystem, testing::decoderProgram());
    const auto path = makeImage(folder, "a.jpg", tags);
    const auto first = readers.open();
    const auto second = readers.open();
    EXPECT_EQ(first->readImageCamera(path), "SONY ILCE-7M3");
    EXPECT_EQ(second->readImageCamera(path), "SONY ILCE-7M3");
    EXPECT_EQ(testing::childrenOfThisProcess().running.size(), 2U);
}

}  // namespace
}  // namespace vellomar
