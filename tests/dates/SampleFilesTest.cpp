// Real camera files: what our readers say beside what ExifTool says. The files are no part of the project;
// VELLOMAR_SAMPLES names the folder that holds them, and expected.json beside them tells what ExifTool found there
// once.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "dates/CameraModel.h"
#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifBatch.h"
#include "engine/model/DateString.h"
#include "engine/model/FileKind.h"
#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "support/DecoderProgram.h"
#include "support/ScopedTimeZone.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using ExifUtils::BatchKind;

// What is known of one file.
struct Findings {
    std::optional<DateCandidate> ours;
    std::optional<DateCandidate> exifTools;
    std::string ourCamera = "—";
    std::string exifToolsCamera = "—";
};

using FindingsByName = std::map<std::string, Findings>;

// Why the dates of a file differ, in the order of the alphabet.
const std::map<std::string, std::string>& differingDates() {
    static const std::string onlyTiffDate = "ExifTool is not asked for the date of the last change";
    static const std::string onlyMakerNotes = "the date stands in the maker's own notes alone";
    static const std::string sidecar = "a sidecar is no image to us; it is read beside its image";
    static const std::map<std::string, std::string> reasons = {
        {"broken/image01137.jpg", "the date stands in XMP alone, which only ExifTool reads inside an image"},
        {"broken/infinite_loop_exif.jpg", onlyTiffDate},
        {"jpeg/CasioQVCI.jpg", onlyMakerNotes},
        {"jpeg/Reconyx_HC500_Hyperfire.jpg", onlyMakerNotes},
        {"jpeg/exif.jpg", onlyTiffDate},
        {"jpeg/samsung-sc-02b.jpg", onlyTiffDate},
        {"other/ExifTool.tif", onlyTiffDate},
        {"pairs/IMG_5910.xmp", sidecar},
        {"video/Pentax.avi", "ExifTool calls it DateTimeOriginal, which is not asked for in videos"},
        {"video/meta.mov", "the phone's own date is of the shot, that of the track is of a later export"},
        {"video/sample_with_ssa_subtitles.mkv", "ExifTool calls it DateTimeOriginal, which is not asked for in videos"},
        {"xmp/XMP.xmp", sidecar},
        {"xmp/sample_datetime_xmp.xmp", sidecar},
    };
    return reasons;
}

const std::map<std::string, std::string>& differingCameras() {
    static const std::string video = "only images are asked for their camera";
    static const std::map<std::string, std::string> reasons = {
        {"jpeg/POL_0134.JPG", "the camera stands in a segment of the maker's own"},
        {"pairs/IMG_3589.mov", video},
        {"video/M2TS.mts", video},
        {"video/ios9.mov", video},
        {"video/meta.mov", video},
        {"xmp/XMP.xmp", "a sidecar is no image to us"},
    };
    return reasons;
}

// Empty where there are no samples.
std::string samplesFolder() {
    const char* folder = std::getenv("VELLOMAR_SAMPLES");
    return folder == nullptr ? std::string() : folder;
}

bool isSample(const std::string& name) {
    return name.find('/') != std::string::npos;
}

std::vector<std::string> sampleNames(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto name = entry.path().string().substr(folder.size() + 1);
        if (entry.is_regular_file() && isSample(name)) names.push_back(name);
    }
    return names;
}

bool isVideo(const std::string& name) {
    return fileKindOf(name) == FileKind::video;
}

std::optional<DateCandidate> ourDate(EmbeddedMetadataReader& reader, const std::string& path) {
    if (isVideo(path)) return reader.readVideoDate(path);
    const auto found = reader.readImageDate(path);
    if (!found) return std::nullopt;
    return DateCandidate{found->date, found->reason, 95};
}

// The date that stands in the file: of the file's own modification we speak elsewhere.
std::optional<DateCandidate> dateInside(const ExifDates& dates, const std::string& path) {
    const auto found = dates.find(path);
    if (found == dates.end() || found->second.source == "ExifTool FileModifyDate") return std::nullopt;
    return found->second;
}

ExifUtils::BatchExifResult askExifTool(const std::vector<TaggedFile>& files, BatchKind kind) {
    std::vector<const TaggedFile*> asked;
    for (const auto& file : files)
        if (isVideo(file.path) == (kind == BatchKind::video)) asked.push_back(&file);
    LinuxFileSystem fileSystem;
    const ExifUtils::ExifTool exifTool(fileSystem);
    return batchReadExif(exifTool, {.files = asked, .kind = kind, .isCancelled = {}, .onProgress = {}});
}

// What both say of every sample, in the zone of the moment.
FindingsByName findingsIn(const std::string& folder) {
    LinuxFileSystem fileSystem;
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    std::vector<TaggedFile> files;
    for (const auto& name : sampleNames(folder))
        files.push_back({joinPath(folder, name), nullptr, std::nullopt});
    auto told = askExifTool(files, BatchKind::image);
    auto toldOfVideos = askExifTool(files, BatchKind::video);
    told.dates.merge(toldOfVideos.dates);
    told.cameras.merge(toldOfVideos.cameras);

    FindingsByName findings;
    for (const auto& [path, sourceRoot, size] : files) {
        auto& finding = findings[path.substr(folder.size() + 1)];
        finding.ours = ourDate(reader, path);
        finding.ourCamera = readCameraModel({}, path, {}, &reader);
        finding.exifTools = dateInside(told.dates, path);
        finding.exifToolsCamera = readCameraModel(told.cameras, path, {}, nullptr);
    }
    return findings;
}

std::string textOf(const std::optional<DateCandidate>& candidate) {
    if (!candidate) return "—";
    return dateString(candidate->date, "yyyy-MM-dd HH:mm:ss") + " " + candidate->source;
}

std::string reasonFor(const std::map<std::string, std::string>& reasons, const std::string& name) {
    const auto found = reasons.find(name);
    return found == reasons.end() ? std::string() : found->second;
}

void print(const FindingsByName& findings) {
    for (const auto& [name, finding] : findings) {
        std::cout << fmt::format("{:<45} {:<52} {:<52} {} {}\n", name, textOf(finding.ours), textOf(finding.exifTools),
                                 finding.ourCamera, reasonFor(differingDates(), name));
    }
}

bool haveOneDate(const Findings& finding) {
    if (!finding.ours || !finding.exifTools) return !finding.ours && !finding.exifTools;
    return finding.ours->date == finding.exifTools->date;
}

TEST(SampleFiles, OurReadersAgreeWithExifToolOrTheReasonIsKnown) {
    const auto folder = samplesFolder();
    if (folder.empty()) return;
    const testing::ScopedTimeZone zone("UTC");
    const auto findings = findingsIn(folder);
    print(findings);
    EXPECT_GE(findings.size(), 88U);
    for (const auto& [name, finding] : findings) {
        EXPECT_NE(haveOneDate(finding), differingDates().contains(name))
            << name << ": " << textOf(finding.ours) << " and " << textOf(finding.exifTools);
        EXPECT_NE(finding.ourCamera == finding.exifToolsCamera, differingCameras().contains(name))
            << name << ": " << finding.ourCamera << " and " << finding.exifToolsCamera;
    }
}

// The first of these tags that ExifTool found, among its records of the samples.
std::optional<std::string> recordedDate(const Json& record) {
    for (const auto* tag : {"ExifIFD:DateTimeOriginal", "IFD0:DateTimeOriginal", "ExifIFD:CreateDate"}) {
        const auto found = record.find(tag);
        if (found != record.end() && found->is_string()) return found->get<std::string>();
    }
    return std::nullopt;
}

TEST(SampleFiles, EveryRecordedExifDateIsRead) {
    const auto folder = samplesFolder();
    if (folder.empty()) return;
    const testing::ScopedTimeZone zone("UTC");
    LinuxFileSystem fileSystem;
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    const auto records = parseJson(testing::contentOf(folder + "/expected.json"));
    ASSERT_TRUE(records.has_value());
    int checked = 0;
    for (const auto& record : *records) {
        const auto name = record.at("SourceFile").get<std::string>();
        const auto recorded = recordedDate(record);
        if (isVideo(name) || !recorded || recorded->starts_with("0000")) continue;
        const auto found = reader.readImageDate(joinPath(folder, name));
        ASSERT_TRUE(found.has_value()) << name;
        EXPECT_EQ(dateString(found->date, "yyyy:MM:dd HH:mm:ss"), recorded->substr(0, 19)) << name;
        ++checked;
    }
    EXPECT_GE(checked, 50);
}

// A file that was cut short anywhere may have lost its date, or the best of its dates; it never costs the next file's.
TEST(SampleFiles, NoCutOfASampleHarms) {
    const auto folder = samplesFolder();
    if (folder.empty()) return;
    const testing::TemporaryFolder cuts(testing::TemporaryFolder::Where::inMemory);
    LinuxFileSystem fileSystem;
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    const auto good = joinPath(folder, "jpeg/Canon.jpg");
    const auto goodDate = reader.readImageDate(good);
    ASSERT_TRUE(goodDate.has_value());
    for (const auto& name : sampleNames(folder)) {
        const auto content = testing::contentOf(joinPath(folder, name));
        for (const auto eighths : {1U, 4U, 7U}) {
            const auto cut = cuts.write(lastPathComponent(name), content.substr(0, content.size() * eighths / 8));
            static_cast<void>(reader.readImageDate(cut));
            static_cast<void>(reader.readVideoDate(cut));
            EXPECT_EQ(reader.readImageDate(good), goodDate) << name;
        }
    }
}

// The times of a QuickTime film are in UTC. We know that, ExifTool prints them as they stand, and the run takes what it
// prints for local time, so that both differ by the zone's distance. Apple's own date names its zone.
TEST(SampleFiles, FilmsKnowTheirZone) {
    const auto folder = samplesFolder();
    if (folder.empty()) return;
    const testing::ScopedTimeZone zone("Europe/Berlin");
    const auto findings = findingsIn(folder);
    const auto& ours = findings.at("video/ios9.mov").ours;
    ASSERT_TRUE(ours.has_value());
    EXPECT_EQ(textOf(ours), "2016-02-02 18:51:27 AVFoundation commonCreationDate");
    EXPECT_EQ(textOf(findings.at("video/ios9.mov").exifTools), "2016-02-02 17:51:27 ExifTool MediaCreateDate");
}

}  // namespace
}  // namespace vellomar
