#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/CandidateGathering.h"
#include "dates/FakeMetadataReader.h"
#include "dates/LocalInstant.h"
#include "dates/PretendFileSystem.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::local;

const std::string kImage = "/card/20230814_143021.jpg";
const std::string kVideo = "/card/20230814_143021.mov";
const std::string kText = "/card/20230814_143021.txt";

class CandidateGathering : public ::testing::Test {
protected:
    std::vector<DateCandidate> gather(const std::string& path, FileKind kind) {
        return gatherDateCandidates({fileSystem, &reader, exifDates, options}, path, kind, folder, now);
    }

    // Every source has something to say about every file.
    void tellEverything() {
        for (const auto& path : {kImage, kVideo, kText}) {
            reader.sidecars[path] = {local(2023, 1, 1), "XMP Sidecar", 97};
            reader.images[path] = {local(2023, 1, 2), "EXIF TIFF DateTime"};
            reader.videos[path] = {local(2023, 1, 3), "AVFoundation commonCreationDate", 75};
            exifDates[path] = {local(2023, 1, 4), "ExifTool CreateDate", 90};
            fileSystem.setDates(path, local(2023, 9, 1), local(2023, 9, 2));
        }
        folder = FolderYearMonth{2012, 8};
    }

    testing::PretendFileSystem fileSystem;
    testing::FakeMetadataReader reader;
    ExifDates exifDates;
    Options options;
    std::optional<FolderYearMonth> folder;
    Instant now = local(2026, 5, 28);
};

DateCandidate name() {
    return {local(2023, 8, 14, 14, 30, 21), "Filename", 70};
}
DateCandidate folderMonth() {
    return {local(2012, 8, 15, 12), "Folder-derived Y/M", 40};
}
DateCandidate exifTool() {
    return {local(2023, 1, 4), "ExifTool CreateDate", 90};
}
DateCandidate created() {
    return {local(2023, 9, 1), "FS CreationDate", 15};
}
DateCandidate modified() {
    return {local(2023, 9, 2), "FS ModificationDate", 20};
}

TEST_F(CandidateGathering, AnImageIsAskedFromItsSidecarToItsFileDates) {
    tellEverything();
    EXPECT_THAT(gather(kImage, FileKind::image),
                ElementsAre(DateCandidate{local(2023, 1, 1), "XMP Sidecar", 97}, exifTool(),
                            DateCandidate{local(2023, 1, 2), "EXIF TIFF DateTime", 95}, name(), folderMonth(),
                            created(), modified()));
}

TEST_F(CandidateGathering, AVideoHasNoSidecar) {
    tellEverything();
    EXPECT_THAT(gather(kVideo, FileKind::video),
                ElementsAre(exifTool(), DateCandidate{local(2023, 1, 3), "AVFoundation commonCreationDate", 75}, name(),
                            folderMonth(), created(), modified()));
    EXPECT_THAT(reader.calls, ElementsAre("video " + kVideo));
}

TEST_F(CandidateGathering, AnotherFileHasNoEmbeddedDate) {
    tellEverything();
    EXPECT_THAT(gather(kText, FileKind::other), ElementsAre(name(), folderMonth(), created(), modified()));
    EXPECT_THAT(reader.calls, IsEmpty());
}

TEST_F(CandidateGathering, OnNetworkStorageNothingIsLookedAt) {
    tellEverything();
    options.storageIsNetwork = true;
    EXPECT_THAT(gather(kImage, FileKind::image), ElementsAre(exifTool(), name(), folderMonth()));
    EXPECT_THAT(gather(kVideo, FileKind::video), ElementsAre(exifTool(), name(), folderMonth()));
    EXPECT_THAT(gather(kText, FileKind::other), ElementsAre(name(), folderMonth()));
    EXPECT_THAT(reader.calls, IsEmpty());
    EXPECT_THAT(fileSystem.calls, IsEmpty());
}

TEST_F(CandidateGathering, WithoutAReaderTheOtherSourcesRemain) {
    tellEverything();
    EXPECT_THAT(gatherDateCandidates({fileSystem, nullptr, exifDates, options}, kImage, FileKind::image, folder, now),
                ElementsAre(exifTool(), name(), folderMonth(), created(), modified()));
    EXPECT_THAT(gatherDateCandidates({fileSystem, nullptr, exifDates, options}, kVideo, FileKind::video, folder, now),
                ElementsAre(exifTool(), name(), folderMonth(), created(), modified()));
}

TEST_F(CandidateGathering, SourcesWithNothingToSayAddNothing) {
    EXPECT_THAT(gather("/card/IMG_4821.jpg", FileKind::image), IsEmpty());
}

TEST_F(CandidateGathering, NamesAreParsedEvenWhenTheOptionIsOff) {
    options.parseNameDates = false;
    EXPECT_THAT(gather(kText, FileKind::other), ElementsAre(name()));
}

TEST_F(CandidateGathering, OnlyTheLastExtensionIsCutFromAName) {
    EXPECT_THAT(gather("/card/a.20230814_143021.jpg", FileKind::image), ElementsAre(name()));
    EXPECT_THAT(gather("/card/a.20230814", FileKind::other), IsEmpty());
    EXPECT_THAT(gather("/20230814_143021/a.jpg", FileKind::image), IsEmpty());
}

TEST_F(CandidateGathering, AFolderWithAYearAloneMeansMidJune) {
    folder = FolderYearMonth{2012, std::nullopt};
    EXPECT_THAT(gather("/card/a.txt", FileKind::other),
                ElementsAre(DateCandidate{local(2012, 6, 15, 12), "Folder-derived Y", 35}));
}

TEST_F(CandidateGathering, ACreationDateMayBeMissing) {
    fileSystem.setDates("/card/a.txt", std::nullopt, local(2023, 9, 2));
    EXPECT_THAT(gather("/card/a.txt", FileKind::other), ElementsAre(modified()));
}

TEST_F(CandidateGathering, FileDatesThatDisagreeScoreLittle) {
    const auto created = local(2023, 1, 1);
    for (const auto distance : {180 * 24h, -180 * 24h}) {
        fileSystem.setDates("/card/a.txt", created, created + distance);
        EXPECT_THAT(gather("/card/a.txt", FileKind::other),
                    ElementsAre(DateCandidate{created, "FS CreationDate", 15},
                                DateCandidate{created + distance, "FS ModificationDate", 20}));
    }
    for (const Instant modified : {created + 180 * 24h + 1us, created - 180 * 24h - 1us}) {
        fileSystem.setDates("/card/a.txt", created, modified);
        EXPECT_THAT(gather("/card/a.txt", FileKind::other),
                    ElementsAre(DateCandidate{created, "FS CreationDate", 5},
                                DateCandidate{modified, "FS ModificationDate", 5}));
    }
}

TEST_F(CandidateGathering, TheFileIsLookedAtOnce) {
    fileSystem.setDates(kImage, local(2023, 9, 1), local(2023, 9, 2));
    static_cast<void>(gather(kImage, FileKind::image));
    EXPECT_THAT(fileSystem.calls, ElementsAre("status " + kImage));
}

}  // namespace
}  // namespace vellomar
