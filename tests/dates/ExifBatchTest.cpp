#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <thread>
#include <utility>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/ExifBatch.h"
#include "dates/LocalInstant.h"
#include "platform/LinuxFileSystem.h"
#include "support/FakeExifTool.h"
#include "support/ForwardingFileSystem.h"
#include "support/ProcessCensus.h"
#include "support/RunTool.h"
#include "support/TemporaryFolder.h"

namespace vellomar::ExifUtils {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::FakeExifTool;
using ::testing::IsEmpty;
using testing::LeavesNothingBehind;
using testing::local;
using ::testing::Pair;
using testing::runTool;
using testing::TemporaryFolder;
using ::testing::UnorderedElementsAre;

using Arguments = std::vector<std::string>;
using Progress = std::vector<std::pair<std::size_t, std::size_t>>;

// For programs that are to end by themselves.
constexpr auto kAmpleTimeOfBatch = 60s;

constexpr std::string_view kUnset = "0000:00:00 00:00:00";

const Arguments kImageArguments = {"-api",
                                   "LargeFileSupport=1",
                                   "-json",
                                   "-DateTimeOriginal",
                                   "-CreateDate",
                                   "-DateTimeDigitized",
                                   "-EXIF:DateTimeOriginal",
                                   "-EXIF:CreateDate",
                                   "-Sony:DateTimeOriginal",
                                   "-Canon:DateTimeOriginal",
                                   "-Nikon:DateTimeOriginal",
                                   "-Panasonic:DateTimeOriginal",
                                   "-XMP:CreateDate",
                                   "-XMP:DateCreated",
                                   "-FileModifyDate",
                                   "-d",
                                   "%Y:%m:%d %H:%M:%S",
                                   "-Make",
                                   "-Model"};

const Arguments kVideoArguments = {"-api",
                                   "LargeFileSupport=1",
                                   "-json",
                                   "-MediaCreateDate",
                                   "-CreateDate",
                                   "-QuickTime:CreateDate",
                                   "-TrackCreateDate",
                                   "-ModifyDate",
                                   "-CreationDate",
                                   "-d",
                                   "%Y:%m:%d %H:%M:%S",
                                   "-Make",
                                   "-Model"};

struct Row {
    std::string tag;
    int score;
};

const std::vector<Row> kImageRows = {
    {"DateTimeOriginal", 100},
    {"EXIF:DateTimeOriginal", 100},
    {"Sony:DateTimeOriginal", 100},
    {"Canon:DateTimeOriginal", 100},
    {"Nikon:DateTimeOriginal", 100},
    {"Panasonic:DateTimeOriginal", 100},
    {"CreateDate", 90},
    {"EXIF:CreateDate", 90},
    {"DateTimeDigitized", 90},
    {"XMP:CreateDate", 85},
    {"XMP:DateCreated", 85},
    {"FileModifyDate", 20},
};

const std::vector<Row> kVideoRows = {
    {"MediaCreateDate", 90}, {"TrackCreateDate", 85}, {"QuickTime:CreateDate", 85},
    {"CreateDate", 80},      {"CreationDate", 80},    {"ModifyDate", 30},
};

// A list of files such as the run has it.
class Files {
public:
    explicit Files(const std::vector<std::string>& paths) {
        files_.reserve(paths.size());
        for (const auto& path : paths)
            files_.push_back({.path = path, .sourceRoot = nullptr, .size = std::nullopt});
        for (const auto& file : files_)
            pointers_.push_back(&file);
    }

    [[nodiscard]] BatchRequest request(BatchKind kind, std::size_t chunkSize = 200) const {
        BatchRequest request;
        request.files = pointers_;
        request.kind = kind;
        request.chunkSize = chunkSize;
        request.timeout = kAmpleTimeOfBatch;
        return request;
    }

private:
    std::vector<TaggedFile> files_;
    std::vector<const TaggedFile*> pointers_;
};

// "/p/0000.jpg", "/p/0001.jpg" and so on.
std::vector<std::string> numberedPaths(std::size_t count) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < count; ++i)
        paths.push_back(fmt::format("/p/{:04}.jpg", i));
    return paths;
}

// What is made of an answer with these records.
BatchExifResult readRecords(BatchKind kind, const Json& records) {
    return batchReadExif(FakeExifTool::printing(jsonText(records)).tool(), Files({"/p/a"}).request(kind));
}

std::string cameraFrom(Json record) {
    record["SourceFile"] = "/p/a";
    const auto result = readRecords(BatchKind::image, Json::array({std::move(record)}));
    const auto found = result.cameras.find("/p/a");
    return found == result.cameras.end() ? "none" : found->second;
}

// The text of a date of its own for each row of a table.
std::string textOfRow(std::size_t row) {
    return fmt::format("2001:02:03 04:05:{:02}", row);
}

DateCandidate candidateOfRow(const std::vector<Row>& rows, std::size_t row) {
    return {local(2001, 2, 3, 4, 5, static_cast<int>(row)), "ExifTool " + rows[row].tag, rows[row].score};
}

// One record a row: "/above/N" has nothing readable before row N, "/alone/N" has row N alone.
Json recordsForEachRow(const std::vector<Row>& rows) {
    Json records = Json::array();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        Json above = {{"SourceFile", fmt::format("/above/{}", row)}};
        for (std::size_t other = 0; other < rows.size(); ++other)
            above[rows[other].tag] = other < row ? std::string(kUnset) : textOfRow(other);
        records.push_back(std::move(above));
        records.push_back({{"SourceFile", fmt::format("/alone/{}", row)}, {rows[row].tag, textOfRow(row)}});
    }
    return records;
}

void expectTable(BatchKind kind, const std::vector<Row>& rows) {
    const auto result = readRecords(kind, recordsForEachRow(rows));
    EXPECT_EQ(result.dates.size(), rows.size() * 2);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        SCOPED_TRACE(rows[row].tag);
        EXPECT_THAT(result.dates, ::testing::Contains(Pair(fmt::format("/above/{}", row), candidateOfRow(rows, row))));
        EXPECT_THAT(result.dates, ::testing::Contains(Pair(fmt::format("/alone/{}", row), candidateOfRow(rows, row))));
    }
}

TEST(ExifBatch, TrustsTheTagsOfImagesInTheirOrder) {
    expectTable(BatchKind::image, kImageRows);
}

TEST(ExifBatch, TrustsTheTagsOfVideosInTheirOrder) {
    expectTable(BatchKind::video, kVideoRows);
}

TEST(ExifBatch, TagsOfTheOtherKindAreNoDates) {
    Json image = {{"SourceFile", "/p/image"}};
    for (const auto* tag : {"MediaCreateDate", "TrackCreateDate", "QuickTime:CreateDate", "CreationDate", "ModifyDate"})
        image[tag] = textOfRow(0);
    EXPECT_THAT(readRecords(BatchKind::image, Json::array({image})).dates, IsEmpty());
    Json video = {{"SourceFile", "/p/video"}};
    for (const auto& [tag, score] : kImageRows)
        if (tag != "CreateDate") video[tag] = textOfRow(0);
    EXPECT_THAT(readRecords(BatchKind::video, Json::array({video})).dates, IsEmpty());
}

TEST(ExifBatch, AValueThatIsNoDateLeavesTheNextTagItsChance) {
    const auto unreadable = {Json(kUnset),
                             Json(""),
                             Json("    :  :     :  :  "),
                             Json("2023:13:01 00:00:00"),
                             Json(2023),
                             Json(20.5),
                             Json(true),
                             Json(nullptr),
                             Json::array({textOfRow(1)}),
                             Json::object()};
    for (const auto& value : unreadable) {
        SCOPED_TRACE(value.dump());
        const auto result =
            readRecords(BatchKind::image,
                        {{{"SourceFile", "/p/a"}, {"DateTimeOriginal", value}, {"CreateDate", "2023:08:14 14:30:21"}}});
        EXPECT_THAT(
            result.dates,
            ElementsAre(Pair("/p/a", DateCandidate{local(2023, 8, 14, 14, 30, 21), "ExifTool CreateDate", 90})));
    }
}

TEST(ExifBatch, ARecordWithoutADateHasNoEntry) {
    const auto result = readRecords(BatchKind::image,
                                    {{{"SourceFile", "/p/a"}, {"DateTimeOriginal", kUnset}}, {{"SourceFile", "/p/b"}}});
    EXPECT_THAT(result.dates, IsEmpty());
    EXPECT_THAT(result.cameras, IsEmpty());
}

TEST(ExifBatch, ARecordThatNamesNoFileIsPassedOver) {
    const auto result = readRecords(BatchKind::image, {{{"CreateDate", textOfRow(1)}, {"Model", "X"}},
                                                       {{"SourceFile", 1}, {"CreateDate", textOfRow(1)}},
                                                       {{"SourceFile", "/p/b"}, {"CreateDate", textOfRow(6)}}});
    EXPECT_THAT(result.dates, ElementsAre(Pair("/p/b", candidateOfRow(kImageRows, 6))));
    EXPECT_THAT(result.cameras, IsEmpty());
}

TEST(ExifBatch, TheLastRecordOfAFileCounts) {
    const auto result =
        readRecords(BatchKind::image, {{{"SourceFile", "/p/a"}, {"CreateDate", textOfRow(1)}, {"Model", "X"}},
                                       {{"SourceFile", "/p/b"}, {"CreateDate", textOfRow(1)}, {"Model", "X"}},
                                       {{"SourceFile", "/p/c"}, {"CreateDate", textOfRow(1)}},
                                       {{"SourceFile", "/p/a"}, {"CreateDate", textOfRow(6)}, {"Model", "Y"}},
                                       {{"SourceFile", "/p/b"}, {"CreateDate", kUnset}}});
    EXPECT_THAT(result.dates, UnorderedElementsAre(
                                  Pair("/p/a", candidateOfRow(kImageRows, 6)),
                                  Pair("/p/c", DateCandidate{local(2001, 2, 3, 4, 5, 1), "ExifTool CreateDate", 90})));
    EXPECT_THAT(result.cameras, UnorderedElementsAre(Pair("/p/a", "Y"), Pair("/p/b", "X")))
        << "a date goes, a camera stays";
}

TEST(ExifBatch, NamesTheCamera) {
    const struct {
        Json record;
        std::string camera;
    } cases[] = {
        {{{"Make", "Canon"}, {"Model", "Canon EOS R5"}}, "Canon EOS R5"},
        {{{"Make", "CANON"}, {"Model", "canon EOS R5"}}, "canon EOS R5"},
        {{{"Make", "SONY"}, {"Model", "ILCE-7M3"}}, "SONY ILCE-7M3"},
        {{{"Make", ""}, {"Model", "ILCE-7M3"}}, "ILCE-7M3"},
        {{{"Model", "ILCE-7M3"}}, "ILCE-7M3"},
        {{{"Make", 7}, {"Model", "ILCE-7M3"}}, "ILCE-7M3"},
        {{{"Make", "Canon"}}, "Canon"},
        {{{"Make", "Canon"}, {"Model", ""}}, "Canon"},
        {{{"Make", "Canon"}, {"Model", 5}}, "Canon"},
        {{{"Make", ""}, {"Model", ""}}, "none"},
        {{{"Make", ""}}, "none"},
        {{{"Make", 1}, {"Model", 2}}, "none"},
        {Json::object(), "none"},
    };
    for (const auto& [record, camera] : cases)
        EXPECT_EQ(cameraFrom(record), camera) << record.dump();
}

TEST(ExifBatch, AsksForTheTagsOfImages) {
    const FakeExifTool fake("printf '[]'");
    const Arguments odd = {"/a b/it's.jpg", "/\"q\"\n.jpg", "/-dash/-x.jpg", "/cmd|", "/M\xC3\xBC\xFF\\.jpg"};
    EXPECT_THAT(batchReadExif(fake.tool(), Files(odd).request(BatchKind::image)).dates, IsEmpty());
    auto expected = kImageArguments;
    expected.insert(expected.end(), odd.begin(), odd.end());
    EXPECT_THAT(fake.calls(), ElementsAre(ElementsAreArray(expected)));
}

TEST(ExifBatch, AsksForTheTagsOfVideos) {
    const FakeExifTool fake("printf '[]'");
    EXPECT_THAT(batchReadExif(fake.tool(), Files({"/a.mov"}).request(BatchKind::video)).dates, IsEmpty());
    auto expected = kVideoArguments;
    expected.emplace_back("/a.mov");
    EXPECT_THAT(fake.calls(), ElementsAre(ElementsAreArray(expected)));
}

// Tells a date of the last file it is given alone, unless that file's name says "bad".
constexpr std::string_view kTellsOfTheLast =
    "for last; do :; done; case \"$last\" in *bad*) exit 1;; esac\n"
    "printf '[{\"SourceFile\":\"%s\",\"CreateDate\":\"2001:02:03 04:05:06\"}]' \"$last\"";

std::vector<std::string> datedPaths(const BatchExifResult& result) {
    std::vector<std::string> paths;
    for (const auto& [path, date] : result.dates)
        paths.push_back(path);
    std::ranges::sort(paths);
    return paths;
}

TEST(ExifBatch, ReadsChunkAfterChunk) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(kTellsOfTheLast);
    const auto paths = numberedPaths(450);
    const Files files(paths);
    auto request = files.request(BatchKind::image, 200);
    Progress progress;
    request.onProgress = [&](std::size_t done, std::size_t total) { progress.emplace_back(done, total); };
    const auto result = batchReadExif(fake.tool(), request);
    EXPECT_THAT(datedPaths(result), ElementsAre("/p/0199.jpg", "/p/0399.jpg", "/p/0449.jpg"));
    EXPECT_THAT(progress, ElementsAre(Pair(200, 450), Pair(400, 450), Pair(450, 450)));
    const auto calls = fake.calls();
    ASSERT_EQ(calls.size(), 3U);
    std::vector<std::string> asked;
    for (const auto& call : calls)
        asked.insert(asked.end(), call.begin() + std::ssize(kImageArguments), call.end());
    EXPECT_EQ(asked, paths);
    EXPECT_EQ(calls[0].size(), kImageArguments.size() + 200);
    EXPECT_EQ(calls[1].size(), kImageArguments.size() + 200);
    EXPECT_EQ(calls[2].size(), kImageArguments.size() + 50);
}

TEST(ExifBatch, FilesThatFillTheirChunksLeaveNoEmptyOne) {
    for (const auto& [count, chunkSize, calls] : std::vector<std::tuple<std::size_t, std::size_t, std::size_t>>{
             {4, 2, 2}, {4, 4, 1}, {4, 5, 1}, {3, 1, 3}, {2, 0, 2}}) {
        SCOPED_TRACE(fmt::format("{} files by {}", count, chunkSize));
        const FakeExifTool fake("printf '[]'");
        static_cast<void>(batchReadExif(fake.tool(), Files(numberedPaths(count)).request(BatchKind::image, chunkSize)));
        EXPECT_EQ(fake.calls().size(), calls);
    }
}

TEST(ExifBatch, WithoutFilesNothingIsAskedOrTold) {
    const FakeExifTool fake(kTellsOfTheLast);
    const Files files({});
    auto request = files.request(BatchKind::image);
    request.isCancelled = [] {
        ADD_FAILURE() << "asked";
        return false;
    };
    request.onProgress = [](std::size_t, std::size_t) { ADD_FAILURE() << "told"; };
    EXPECT_THAT(batchReadExif(fake.tool(), request).dates, IsEmpty());
    EXPECT_THAT(fake.calls(), IsEmpty());
}

TEST(ExifBatch, CancellingKeepsWhatHasBeenRead) {
    const FakeExifTool fake(kTellsOfTheLast);
    const Files files(numberedPaths(8));
    auto request = files.request(BatchKind::image, 2);
    Progress progress;
    int asked = 0;
    request.isCancelled = [&] { return ++asked > 2; };
    request.onProgress = [&](std::size_t done, std::size_t total) { progress.emplace_back(done, total); };
    EXPECT_THAT(datedPaths(batchReadExif(fake.tool(), request)), ElementsAre("/p/0001.jpg", "/p/0003.jpg"));
    EXPECT_THAT(progress, ElementsAre(Pair(2, 8), Pair(4, 8)));
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(fake.calls().size(), 2U);
}

TEST(ExifBatch, CancelledFromTheStartItReadsNothing) {
    const FakeExifTool fake(kTellsOfTheLast);
    const Files files(numberedPaths(8));
    auto request = files.request(BatchKind::image, 2);
    request.isCancelled = [] { return true; };
    EXPECT_THAT(batchReadExif(fake.tool(), request).dates, IsEmpty());
    EXPECT_THAT(fake.calls(), IsEmpty());
}

TEST(ExifBatch, AChunkThatFailsIsWrittenOffAlone) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(kTellsOfTheLast);
    const std::string tooLongForTheKernel = "/" + std::string(200'000, 'x');
    const Files files({"/p/1", "/p/2", "/p/3", "/p/bad", "/p/5", tooLongForTheKernel, "/p/7"});
    auto request = files.request(BatchKind::image, 2);
    Progress progress;
    request.onProgress = [&](std::size_t done, std::size_t total) { progress.emplace_back(done, total); };
    EXPECT_THAT(datedPaths(batchReadExif(fake.tool(), request)), ElementsAre("/p/2", "/p/7"));
    EXPECT_THAT(progress, ElementsAre(Pair(2, 7), Pair(4, 7), Pair(6, 7), Pair(7, 7)));
}

TEST(ExifBatch, AChunkThatTakesTooLongIsWrittenOffAlone) {
    const LeavesNothingBehind census;
    const FakeExifTool fake("case \"$*\" in *slow*) sleep 60;; esac\n" + std::string(kTellsOfTheLast));
    const Files files({"/p/slow"});
    auto request = files.request(BatchKind::image);
    request.timeout = 50ms;
    std::size_t done = 0;
    request.onProgress = [&](std::size_t filesDone, std::size_t) { done = filesDone; };
    EXPECT_THAT(batchReadExif(fake.tool(), request).dates, IsEmpty());
    EXPECT_EQ(done, 1U);
}

TEST(ExifBatch, WithoutExifToolThereIsNothingButProgress) {
    LinuxFileSystem fileSystem;
    const TemporaryFolder folder;
    const ExifTool none(fileSystem, {"", {folder / "missing"}});
    const Files files(numberedPaths(3));
    auto request = files.request(BatchKind::image, 2);
    Progress progress;
    request.onProgress = [&](std::size_t done, std::size_t total) { progress.emplace_back(done, total); };
    const auto result = batchReadExif(none, request);
    EXPECT_THAT(result.dates, IsEmpty());
    EXPECT_THAT(result.cameras, IsEmpty());
    EXPECT_THAT(progress, ElementsAre(Pair(2, 3), Pair(3, 3)));
}

TEST(ExifBatch, ImagesAndVideosMayBeReadSideBySide) {
    const LeavesNothingBehind census;
    const FakeExifTool fake(kTellsOfTheLast);
    const Files images(numberedPaths(10));
    const Files videos({"/v/1", "/v/2", "/v/3"});
    BatchExifResult ofImages;
    std::jthread thread([&] { ofImages = batchReadExif(fake.tool(), images.request(BatchKind::image, 1)); });
    const auto ofVideos = batchReadExif(fake.tool(), videos.request(BatchKind::video, 1));
    thread.join();
    EXPECT_EQ(ofImages.dates.size(), 10U);
    EXPECT_EQ(ofVideos.dates.size(), 3U);
    EXPECT_EQ(ofVideos.dates.at("/v/1").score, 80);
}

// Volumes whose paths begin with "/share" are not attached, and nothing is known of "/unknown".
class PretendVolumes final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& path) override {
        looks.push_back(path);
        if (path == "/unknown") return systemFailure(ENOENT);
        return !path.starts_with("/share");
    }

    std::vector<std::string> looks;
};

TEST(AnyVolumeNotLocal, LooksAtTheFirstFivePaths) {
    const struct {
        std::vector<std::string> paths;
        bool isAnyRemote;
        std::size_t looks;
    } cases[] = {
        {{}, false, 0},
        {{"/a"}, false, 1},
        {{"/share"}, true, 1},
        {{"/a", "/share", "/b"}, true, 2},
        {{"/a", "/b", "/c", "/d", "/share"}, true, 5},
        {{"/a", "/b", "/c", "/d", "/e", "/share"}, false, 5},
        {{"/unknown", "/share"}, true, 2},
        {{"/unknown", "/unknown", "/a", "/unknown", "/unknown", "/share"}, false, 5},
    };
    LinuxFileSystem disk;
    for (const auto& [paths, isAnyRemote, looks] : cases) {
        SCOPED_TRACE(::testing::PrintToString(paths));
        PretendVolumes volumes(disk);
        EXPECT_EQ(anyVolumeNotLocal(volumes, paths), isAnyRemote);
        EXPECT_EQ(volumes.looks, std::vector(paths.begin(), paths.begin() + static_cast<std::ptrdiff_t>(looks)));
    }
}

// The installed program, with files that tools made.
class RealExifTool : public ::testing::Test {
protected:
    // A photo of an EOS R5 of 2020-01-02 03:04:05; what follows are links to it.
    void makePhoto() {
        runTool({"convert", "-size", "16x16", "xc:red", photo});
        const Arguments tags = {"-q",          "-overwrite_original", "-DateTimeOriginal=2020:01:02 03:04:05",
                                "-Make=Canon", "-Model=Canon EOS R5", photo};
        ASSERT_TRUE(tool.runExifTool(tags));
    }

    std::string linkToPhoto(const std::string& name) const {
        auto path = folder / name;
        fs::create_directories(fs::path(path).parent_path());
        fs::create_hard_link(photo, path);
        return path;
    }

    static DateCandidate dateOfPhoto() { return {local(2020, 1, 2, 3, 4, 5), "ExifTool DateTimeOriginal", 100}; }

    LinuxFileSystem fileSystem;
    ExifTool tool{fileSystem};
    TemporaryFolder folder;
    std::string photo = folder / "photo.jpg";
};

TEST_F(RealExifTool, AChunkWithLongPathsComesBackWhole) {
    const LeavesNothingBehind census;
    makePhoto();
    constexpr std::size_t kPathLength = 400;
    std::vector<std::string> paths;
    for (int i = 0; i < 200; ++i) {
        auto name = fmt::format("{:x<200}/{:03}.jpg", "", i);
        const auto missing = kPathLength - (folder / name).size();
        name.insert(name.find('/') + 1, std::string(missing, 'y'));
        paths.push_back(linkToPhoto(name));
        ASSERT_EQ(paths.back().size(), kPathLength);
    }
    const auto result = batchReadExif(tool, Files(paths).request(BatchKind::image, 200));
    EXPECT_EQ(result.dates.size(), 200U);
    EXPECT_EQ(result.cameras.size(), 200U);
    for (const auto& path : paths) {
        ASSERT_THAT(result.dates, ::testing::Contains(Pair(path, dateOfPhoto())));
        ASSERT_THAT(result.cameras, ::testing::Contains(Pair(path, "Canon EOS R5")));
    }
}

TEST_F(RealExifTool, OddNamesComeBackAsTheyWere) {
    const LeavesNothingBehind census;
    makePhoto();
    const std::vector<std::string> odd = {
        linkToPhoto("a b .jpg"),
        linkToPhoto("it's.jpg"),
        linkToPhoto("\"quoted\".jpg"),
        linkToPhoto("two\nlines.jpg"),
        linkToPhoto("-Model.jpg"),
        linkToPhoto("-"),
        linkToPhoto("back\\slash.jpg"),
        linkToPhoto("Gr\xC3\xBC\xC3\x9F"
                    "e.jpg"),
        linkToPhoto("\xF0\x9F\x93\xB7.jpg"),
        linkToPhoto("tab\t\x01.jpg"),
        linkToPhoto("%f $x `y` #1 *?.jpg"),
        linkToPhoto("&true|"),
        linkToPhoto(" leading.jpg"),
        linkToPhoto("123"),
        linkToPhoto("true"),
        linkToPhoto("-folder/-.jpg"),
    };
    const auto notUtf8 = linkToPhoto(
        "Gr\xFC\xDF"
        "e.jpg");
    const auto empty = folder.write("empty.jpg", "");
    const auto text = folder.write("text.jpg", "no picture at all");
    const auto missing = folder / "missing.jpg";
    for (const auto& path : {empty, text})
        ASSERT_TRUE(fileSystem.setModificationDate(path, local(2021, 3, 4, 5, 6, 7)).has_value());
    auto paths = odd;
    paths.insert(paths.begin() + 4, {notUtf8, empty, text, missing});
    const auto result = batchReadExif(tool, Files(paths).request(BatchKind::image));
    for (const auto& path : odd) {
        SCOPED_TRACE(path);
        EXPECT_THAT(result.dates, ::testing::Contains(Pair(path, dateOfPhoto())));
        EXPECT_THAT(result.cameras, ::testing::Contains(Pair(path, "Canon EOS R5")));
    }
    EXPECT_FALSE(result.dates.contains(notUtf8));
    EXPECT_FALSE(result.cameras.contains(notUtf8));
    EXPECT_FALSE(result.dates.contains(missing));
    for (const auto& path : {empty, text})
        EXPECT_THAT(result.dates, ::testing::Contains(Pair(
                                      path, DateCandidate{local(2021, 3, 4, 5, 6, 7), "ExifTool FileModifyDate", 20})));
}

TEST_F(RealExifTool, ReadsWhenAVideoWasMade) {
    const LeavesNothingBehind census;
    const auto video = folder / "video.mov";
    runTool({"ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "color=c=black:s=32x32:d=0.1", "-metadata",
             "creation_time=2021-03-04T05:06:07Z", video});
    const auto result = batchReadExif(tool, Files({video}).request(BatchKind::video));
    EXPECT_THAT(result.dates,
                ElementsAre(Pair(video, DateCandidate{local(2021, 3, 4, 5, 6, 7), "ExifTool MediaCreateDate", 90})));
    EXPECT_THAT(result.cameras, IsEmpty());
}

TEST_F(RealExifTool, TellsWhetherItCouldWrite) {
    const LeavesNothingBehind census;
    const Arguments onNothing = {"-q", "-overwrite_original", "-Make=Canon", folder / "missing.jpg"};
    EXPECT_FALSE(tool.runExifTool(onNothing));
}

}  // namespace
}  // namespace vellomar::ExifUtils
