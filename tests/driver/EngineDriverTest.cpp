#include <filesystem>
#include <string>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "driver/DriverProcess.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using testing::contentOf;
using testing::Driver;
using ::testing::ElementsAre;
using testing::EngineDriver;
using testing::exists;
using ::testing::HasSubstr;

TEST_F(EngineDriver, EndsWithItsInput) {
    EXPECT_EQ(driver.finish(), 0);
    EXPECT_EQ(driver.line(), "");
}

TEST_F(EngineDriver, AnswersInOrderOneLineEach) {
    driver.send(
        "{\"op\":\"formatEta\",\"value\":1}\nnonsense\n\n{\"op\":\"formatEta\",\"value\":2}\n"
        "{\"op\":\"formatEta\",\"value\":3}");  // the last without an end of line
    EXPECT_EQ(driver.finish(), 0);
    EXPECT_EQ(driver.line(), R"({"ok":true,"result":"1s"})");
    EXPECT_THAT(driver.line(), HasSubstr("\"ok\":false"));
    EXPECT_EQ(driver.line(), R"({"ok":true,"result":"2s"})");
    EXPECT_EQ(driver.line(), R"({"ok":true,"result":"3s"})");
    EXPECT_EQ(driver.line(), "");
}

TEST_F(EngineDriver, SurvivesBadLines) {
    const std::string deep(100'000, '[');
    for (const std::string& line :
         {std::string("nonsense"), std::string("{"), std::string("[]"), std::string("null"), std::string("{}"),
          std::string(" "), std::string("\xFF\xFE"), std::string("\0", 1), std::string(R"({"op":7})"),
          std::string(R"({"op":null})"), std::string(R"({"op":"noSuchOp"})"), std::string(R"({"op":"\udcff"})"),
          std::string(R"({"op":"\ud800"})"), deep}) {
        SCOPED_TRACE(line.substr(0, 40));
        EXPECT_NE(errorTo(line), "");
    }
    EXPECT_EQ(errorTo(R"({"op":"noSuchOp"})"), "unknown op: noSuchOp");
    EXPECT_EQ(driver.result({{"op", "formatEta"}, {"value", 1}}), "1s");
}

TEST_F(EngineDriver, SurvivesBadArguments) {
    for (const char* request : {
             R"({"op":"fileKindOf"})",
             R"({"op":"fileKindOf","path":null})",
             R"({"op":"fileKindOf","path":7})",
             R"({"op":"dateString","epoch":0})",
             R"({"op":"dateString","epoch":"0","pattern":"yyyy"})",
             R"({"op":"dateString","epoch":1e300,"pattern":"yyyy"})",
             R"({"op":"formatBytes"})",
             R"({"op":"formatBytes","value":"1"})",
             R"({"op":"formatBytes","value":1e30})",
             R"({"op":"formatBytes","value":18446744073709551615})",
             R"({"op":"formatDuration","value":1e300})",
             R"({"op":"formatEta","value":null})",
             R"({"op":"sha256OfFile"})",
             R"({"op":"uniqueDestination","path":[]})",
             R"({"op":"filenameCandidate"})",
             R"({"op":"folderYearMonth","path":"/a","parseMonthWords":1})",
             R"({"op":"siblingYear","entries":"/a","file":"/a/b"})",
             R"({"op":"siblingYear","entries":[1],"file":"/a/b"})",
             R"({"op":"parseExifDate"})",
             R"({"op":"readImageDate","path":7})",
             R"({"op":"readVideoDate"})",
             R"({"op":"sidecarCandidate"})",
             R"({"op":"readCameraModel","path":"/a","exifCameras":[1]})",
             R"({"op":"batchReadExif","files":["/a"],"kind":"other","chunkSize":1,"timeout":1})",
             R"({"op":"batchReadExif","files":["/a"],"kind":"image","chunkSize":0,"timeout":1})",
             R"({"op":"batchReadExif","files":["/a"],"kind":"image","chunkSize":1,"timeout":1e300})",
             R"({"op":"batchReadExif","files":"/a","kind":"image","chunkSize":1,"timeout":1})",
             R"({"op":"decideFile","path":"/a/b.jpg"})",
             R"({"op":"buildDestination","source":"/a/b.jpg","epoch":0,"dest":"/d","options":[]})",
             R"({"op":"buildDestination","source":"/a/b.jpg","epoch":0,"dest":"/d","options":{"dryRun":1}})",
             R"({"op":"buildDestination","source":"/a/b.jpg","epoch":0,"dest":"/d","options":{"dryrun":true}})",
             R"({"op":"buildDestination","source":"/a/b.jpg","epoch":0,"dest":"/d","options":{"namingStyle":"x"}})",
             R"({"op":"renderTemplatePreview"})",
             R"({"op":"meaningfulFolders","path":"/a","rules":[{"matchText":"a"}]})",
             R"({"op":"applyRenameRules","name":"a","rules":["a"]})",
             R"({"op":"applyRenameRules","name":"a","rules":"a"})",
             R"({"op":"bufferedCopy","source":"/a"})",
             R"({"op":"detectPairs","paths":{"a":1}})",
             R"({"op":"detectPairs","paths":[null]})",
             R"({"op":"loadManifests"})",
             R"({"op":"importManifest"})",
             R"({"op":"undo"})",
             R"({"op":"undo","manifest":7})",
             R"({"op":"undo","manifest":"/no/such/manifest.json"})",
             R"({"op":"run","sources":"/a","dest":"/d"})",
             R"({"op":"run","sources":["/a"]})",
             R"({"op":"run","sources":["/a"],"dest":"/d","cancelWhen":{}})",
             R"({"op":"run","sources":["/a"],"dest":"/d","cancelWhen":"x"})",
         }) {
        SCOPED_TRACE(request);
        EXPECT_NE(errorTo(request), "");
    }
    EXPECT_EQ(errorTo(R"({"op":"fileKindOf"})"), "argument 'path' is missing");
}

TEST_F(EngineDriver, StrayBytesTravelAsLoneSurrogatesBothWays) {
    EXPECT_EQ(driver.result({{"op", "fileKindOf"},
                             {"path",
                              "/br\xFC"
                              "cke.jpg"}}),
              "image");
    const auto path = folder.write(
        "br\xFC"
        "cke.jpg");
    driver.send(fmt::format("{{\"op\":\"uniqueDestination\",\"path\":\"{}/br\\uDCFCcke.jpg\"}}\n", folder.path()));
    EXPECT_EQ(driver.line(), fmt::format("{{\"ok\":true,\"result\":\"{}/br\\udcfccke (1).jpg\"}}", folder.path()));
}

TEST_F(EngineDriver, TellsKindsAndFormatsTexts) {
    EXPECT_EQ(driver.result({{"op", "fileKindOf"}, {"path", "/a/b.CR3"}}), "image");
    EXPECT_EQ(driver.result({{"op", "fileKindOf"}, {"path", "/a/b.mov"}}), "video");
    EXPECT_EQ(driver.result({{"op", "fileKindOf"}, {"path", "/a/b"}}), "other");
    EXPECT_EQ(driver.result({{"op", "formatBytes"}, {"value", 1'048'576}}), "1.0 MB");
    EXPECT_EQ(driver.result({{"op", "formatBytes"}, {"value", 9'223'372'036'854'775'807}}), "8589934592.00 GB");
    EXPECT_EQ(driver.result({{"op", "formatBytes"}, {"value", 1'023.9}}), "1023 B");
    EXPECT_EQ(driver.result({{"op", "formatDuration"}, {"value", 3'661.5}}), "1h 01m 01s");
    EXPECT_EQ(driver.result({{"op", "formatEta"}, {"value", 3'661}}), "1h 01m");
    EXPECT_EQ(driver.result({{"op", "dateString"}, {"epoch", 86'400.5}, {"pattern", "ss.SSS 'of' EEEE"}})
                  .get<std::string>()
                  .substr(0, 9),
              "00.500 of");
}

TEST_F(EngineDriver, DigestsFilesAndFindsFreeNames) {
    const auto path = folder.write("a.jpg", "abc");
    EXPECT_EQ(driver.result({{"op", "sha256OfFile"}, {"path", path}}),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(driver.result({{"op", "sha256OfFile"}, {"path", folder / "missing"}}), nullptr);
    EXPECT_EQ(driver.result({{"op", "uniqueDestination"}, {"path", path}}), folder / "a (1).jpg");
    EXPECT_EQ(driver.result({{"op", "uniqueDestination"}, {"path", folder / "b.jpg"}}), folder / "b.jpg");
}

TEST_F(EngineDriver, CopiesThroughABuffer) {
    const auto source = folder.write("source", "pixels");
    EXPECT_EQ(driver.result({{"op", "bufferedCopy"}, {"source", source}, {"partial", folder / "partial"}}),
              Json::object());
    EXPECT_EQ(contentOf(folder / "partial"), "pixels");
    const Json failure = {
        {"domain", "Vellomar"}, {"code", 1}, {"description", "Cannot open source: " + (folder / "missing")}};
    EXPECT_EQ(driver.result({{"op", "bufferedCopy"}, {"source", folder / "missing"}, {"partial", folder / "partial"}}),
              failure);
}

TEST_F(EngineDriver, FindsPairs) {
    const Json expected = {{"rawToJpeg", {{"/a/1", "/a/1.JPG"}}},
                           {"jpegToRaw", {{"/a/1", "/a/1.dng"}}},
                           {"sidecarsByPath", {{"/a/1.dng", Json::array({"/a/1.xmp"})}}},
                           {"pairs", 1}};
    EXPECT_EQ(driver.result({{"op", "detectPairs"}, {"paths", {"/a/1.JPG", "/a/1.dng", "/a/1.xmp"}}}), expected);
}

TEST_F(EngineDriver, ReadsDatesFromNames) {
    const auto found = driver.result({{"op", "filenameCandidate"}, {"stem", "2023-08-14 14.30.21"}});
    EXPECT_EQ(found.at("text"), "2023-08-14 14:30:21");
    EXPECT_EQ(found.at("source"), "Filename");
    EXPECT_EQ(found.at("score"), 70);
    EXPECT_TRUE(found.at("epoch").is_number_integer());
    EXPECT_EQ(driver.result({{"op", "filenameCandidate"}, {"stem", "holiday"}}), nullptr);
    const auto text =
        driver.result({{"op", "dateString"}, {"epoch", found.at("epoch")}, {"pattern", "yyyy-MM-dd HH:mm:ss"}});
    EXPECT_EQ(text, "2023-08-14 14:30:21");
}

TEST_F(EngineDriver, ReadsDatesFromFoldersAndNeighbours) {
    const Json august = {{"year", 2023}, {"month", 8}};
    EXPECT_EQ(driver.result({{"op", "folderYearMonth"}, {"path", "Aug 2023"}, {"parseMonthWords", true}}), august);
    const Json year = {{"year", 2023}, {"month", nullptr}};
    EXPECT_EQ(driver.result({{"op", "folderYearMonth"}, {"path", "Aug 2023"}, {"parseMonthWords", false}}), year);
    EXPECT_EQ(driver.result({{"op", "folderYearMonth"}, {"path", "Rome"}}), nullptr);
    EXPECT_EQ(driver.result({{"op", "siblingYear"}, {"entries", Json::array()}, {"file", "/p/a.jpg"}}), nullptr);
}

TEST_F(EngineDriver, DecidesAFile) {
    const auto path = folder.write("src/Rome/2023-08-14 14.30.21.jpg", "abc");
    const auto decided = driver.result({{"op", "decideFile"},
                                        {"path", path},
                                        {"sourceRoot", folder / "src/"},
                                        {"dest", "/dest"},
                                        {"options", {{"namingStyle", "original"}}},
                                        {"exifDates", Json::object()},
                                        {"exifCameras", Json::object()},
                                        {"rules", Json::array()}});
    EXPECT_EQ(decided.at("resolvedDateStr"), "2023-08-14 14:30:21");
    EXPECT_EQ(decided.at("dateUsed"), epochOf("2023-08-14 14.30.21"));
    EXPECT_EQ(decided.at("conflictPolicy"), "Rename");
    EXPECT_EQ(decided.at("meaningfulTail"), Json({"Rome"}));
    EXPECT_EQ(decided.at("sha256"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_THAT(decided.at("finalDest").get<std::string>(), ::testing::StartsWith("/dest/"));
    for (const char* field : {"decision", "isStrongDate", "decisionLog", "cameraModel"})
        EXPECT_TRUE(decided.contains(field)) << field;
}

TEST_F(EngineDriver, DecidesByWhatExifToolRead) {
    const auto path = folder.write("src/a.jpg", "abc");
    const auto epoch = epochOf("2019-05-06 07.08.09");
    const auto decided =
        driver.result({{"op", "decideFile"},
                       {"path", path},
                       {"sourceRoot", folder / "src"},
                       {"dest", "/dest"},
                       {"options", {{"conflictPolicy", "Skip"}, {"computeHashForDuplicates", false}}},
                       {"exifDates", {{path, {{"epoch", epoch}, {"source", "ExifTool"}, {"score", 95}}}}},
                       {"exifCameras", {{path, "Pentax K-1"}}}});
    EXPECT_EQ(decided.at("resolvedDateStr"), "2019-05-06 07:08:09");
    EXPECT_EQ(decided.at("isStrongDate"), true);
    EXPECT_EQ(decided.at("cameraModel"), "Pentax K-1");
    EXPECT_EQ(decided.at("conflictPolicy"), "Skip");
    EXPECT_EQ(decided.at("sha256"), nullptr);
}

TEST_F(EngineDriver, BuildsDestinations) {
    const auto epoch = epochOf("2023-08-14 14.30.21");
    Json request = {{"op", "buildDestination"},
                    {"source", "/s/IMG_1.JPG"},
                    {"epoch", epoch},
                    {"event", "Rome"},
                    {"dest", "/d"},
                    {"options", {{"namingStyle", "custom"}, {"customFormat", "{YYYY}/{Event}/{HH}{mm}.{ext}"}}}};
    const auto withEvent = driver.result(request).get<std::string>();
    EXPECT_THAT(withEvent, ::testing::StartsWith("/d/2023/Rome/1430."));
    request["event"] = nullptr;
    EXPECT_THAT(driver.result(request).get<std::string>(), ::testing::Not(HasSubstr("Rome")));
}

TEST_F(EngineDriver, PreviewsTemplates) {
    EXPECT_EQ(driver.result({{"op", "renderTemplatePreview"}, {"format", "plain text"}}), "plain text");
    EXPECT_NE(driver.result({{"op", "renderTemplatePreview"}, {"format", "{YYYY}"}}), "{YYYY}");
}

TEST_F(EngineDriver, FindsMeaningfulFoldersAndRenamesThem) {
    const Json rules = Json::array({{{"matchText", "rome"}, {"replacement", "Roma"}, {"isEnabled", true}}});
    const Json off = Json::array({{{"matchText", "rome"}, {"replacement", "Roma"}, {"isEnabled", false}}});
    const auto found = driver.result({{"op", "meaningfulFolders"}, {"path", "DCIM/Rome trip"}, {"rules", rules}});
    EXPECT_EQ(found.at("first"), "Roma");
    EXPECT_EQ(found.at("tail"), Json({"Roma"}));
    EXPECT_EQ(driver.result({{"op", "applyRenameRules"}, {"name", "ROME"}, {"rules", rules}}), "Roma");
    EXPECT_EQ(driver.result({{"op", "applyRenameRules"}, {"name", "ROME"}, {"rules", off}}), "ROME");
    EXPECT_EQ(driver.result({{"op", "applyRenameRules"}, {"name", "Floppy Dorno"}, {"floppyMode", true}}), "Floppy");
    EXPECT_EQ(driver.result({{"op", "applyRenameRules"}, {"name", "Floppy Dorno"}, {"floppyMode", false}}),
              "Floppy Dorno");
}

constexpr const char* kManifest =
    R"({"destRoot":"/d","entries":[{"destination":"/d/br\udcfccke","op":"move","source":"/s/a",)"
    R"("timestamp":"2024-06-14T09:41:07Z"}],"runID":"r","sourceRoot":"/s"})";

TEST_F(EngineDriver, ListsAndImportsManifests) {
    const auto expected = parseJson(kManifest).value();
    const auto path = folder.write("_vellomar_undo_1.json", kManifest);
    folder.write("_vellomar_undo_2.json", "broken");
    EXPECT_EQ(driver.result({{"op", "loadManifests"}, {"dest", folder.path()}}), Json::array({expected}));
    EXPECT_EQ(driver.result({{"op", "loadManifests"}, {"dest", folder / "missing"}}), Json::array());
    EXPECT_EQ(driver.result({{"op", "importManifest"}, {"path", path}}), expected);
    const Json message = {{"message", "Could not read _vellomar_undo_2.json — is it a valid Vellomar undo file?"}};
    EXPECT_EQ(driver.result({{"op", "importManifest"}, {"path", folder / "_vellomar_undo_2.json"}}), message);
}

class EngineDriverRun : public EngineDriver {
protected:
    EngineDriverRun() {
        folder.makeFolder("dest");
        request = {{"op", "run"},
                   {"sources", {folder / "src"}},
                   {"dest", folder / "dest"},
                   {"options",
                    {{"namingStyle", "custom"},
                     {"customFormat", "{YYYY}/{Event}/{original}.{ext}"},
                     {"useExifToolForImages", false},
                     {"useExifToolForVideo", false}}}};
    }

    Json request;
};

TEST_F(EngineDriverRun, ADryRunTellsAllThatWasPublished) {
    const auto source = folder.write("src/Rome/2023-08-14 14.30.21.jpg", "abc");
    const auto state = driver.result(request);
    for (const char* field :
         {"isRunning",      "previewRowsCapped", "totalFilesScanned", "progress",           "statusText",
          "logLines",       "previewRows",       "mediaBreakdown",    "duplicateDestPaths", "duplicateGroups",
          "libraryStats",   "integrityReport",   "verifyFailures",    "rawJpegPairs",       "bytesProcessed",
          "bytesPerSecond", "allLogLines",       "statusHistory",     "progressHistory",    "notification",
          "seconds"})
        EXPECT_TRUE(state.contains(field)) << field;
    EXPECT_EQ(state.at("isRunning"), false);
    EXPECT_EQ(state.at("statusText"), "Done");
    EXPECT_EQ(state.at("progress"), 1.0);
    EXPECT_EQ(state.at("totalFilesScanned"), 1);
    EXPECT_EQ(state.at("bytesProcessed"), 3);
    EXPECT_EQ(state.at("mediaBreakdown"), (Json{{"images", 1}, {"videos", 0}, {"other", 0}}));
    EXPECT_EQ(state.at("previewRows").at(0).at("source"), source);
    EXPECT_EQ(state.at("statusHistory").back(), "Done");
    EXPECT_EQ(state.at("progressHistory").back(), 1.0);
    EXPECT_EQ(state.at("notification"),
              (Json{{"title", "Vellomar – Dry Run Complete"}, {"body", "1 file processed."}}));
    EXPECT_EQ(state.at("allLogLines"), state.at("logLines"));
    EXPECT_TRUE(exists(folder / "dest/_preview_plan.csv"));
    EXPECT_FALSE(exists(folder / "dest/2023"));
}

TEST_F(EngineDriverRun, ARealRunObeysRulesAndLeavesAManifest) {
    const auto source = folder.write("src/Rome/2023-08-14 14.30.21.jpg", "abc");
    request["options"]["dryRun"] = false;
    request["rules"] = Json::array({{{"matchText", "rome"}, {"replacement", "Roma"}, {"isEnabled", true}}});
    const auto state = driver.result(request);
    const auto destination = state.at("previewRows").at(0).at("destination").get<std::string>();
    EXPECT_THAT(destination, HasSubstr("/2023/Roma/"));
    EXPECT_EQ(contentOf(destination), "abc");
    EXPECT_EQ(contentOf(source), "abc");
    const auto manifests = driver.result({{"op", "loadManifests"}, {"dest", folder / "dest"}});
    ASSERT_EQ(manifests.size(), 1U);
    EXPECT_EQ(manifests.at(0).at("entries").at(0).at("source"), source);
}

TEST_F(EngineDriverRun, ARealRunCanBeUndone) {
    const auto source = folder.write("src/Rome/2023-08-14 14.30.21.jpg", "abc");
    request["options"]["dryRun"] = false;
    request["options"]["moveOriginalsWhenReliable"] = true;
    const auto moved = driver.result(request).at("previewRows").at(0).at("destination").get<std::string>();
    EXPECT_EQ(contentOf(moved), "abc");
    EXPECT_FALSE(exists(source));
    std::string manifest;
    for (const auto& entry : fs::directory_iterator(folder / "dest"))
        if (entry.path().extension() == ".json") manifest = entry.path().string();
    const auto state = driver.result({{"op", "undo"}, {"manifest", manifest}});
    EXPECT_EQ(contentOf(source), "abc");
    EXPECT_FALSE(exists(folder / "dest/2023"));
    EXPECT_TRUE(exists(manifest));
    EXPECT_EQ(state.at("isRunning"), false);
    EXPECT_EQ(state.at("progress"), 1.0);
    EXPECT_EQ(state.at("statusText"), "Undo complete — reversed: 1  skipped: 0  failed: 0");
    EXPECT_EQ(state.at("statusHistory"), (Json{"Undoing 1 operations...", state.at("statusText")}));
    EXPECT_EQ(state.at("progressHistory"), (Json{0.0, 1.0, 1.0}));
    EXPECT_EQ(state.at("allLogLines"),
              Json::array({"✓ Restored: " + fs::path(moved).filename().string() + " → " + source}));
    EXPECT_EQ(state.at("notification"), nullptr);
    EXPECT_TRUE(state.contains("seconds"));
}

TEST_F(EngineDriverRun, WhatIsNoManifestCannotBeUndone) {
    const auto path = folder.write("broken.json", "{}");
    EXPECT_EQ(errorTo(jsonText({{"op", "undo"}, {"manifest", path}})),
              "Could not read broken.json — is it a valid Vellomar undo file?");
}

TEST_F(EngineDriverRun, FloppyModeRenamesAFamilyOfFolders) {
    folder.write("src/Floppy Dorno Pics/2023-08-14 14.30.21.jpg", "abc");
    const auto destination = [&] {
        return driver.result(request).at("previewRows").at(0).at("destination").get<std::string>();
    };
    EXPECT_THAT(destination(), HasSubstr("/2023/Floppy Dorno Pics/"));
    request["floppyMode"] = true;
    EXPECT_THAT(destination(), HasSubstr("/2023/Floppy/"));
}

TEST_F(EngineDriverRun, CanBeCancelledByALogLine) {
    for (int i = 0; i < 5; ++i)
        folder.write(fmt::format("src/2023-08-1{} 14.30.21.jpg", i), "abc");
    request["cancelWhen"] = {{"log", "Total files: 5"}};
    const auto state = driver.result(request);
    EXPECT_EQ(state.at("statusText"), "Cancelled");
    EXPECT_EQ(state.at("notification"), nullptr);
    EXPECT_THAT(state.at("allLogLines"), Contains("Cancelled before post-processing."));
    EXPECT_EQ(state.at("previewRows").size(), 0U);
    EXPECT_FALSE(exists(folder / "dest/_preview_plan.csv"));
}

TEST_F(EngineDriverRun, CanBeCancelledByAStatus) {
    folder.write("src/2023-08-14 14.30.21.jpg", "abc");
    request["cancelWhen"] = {{"status", "Scanning..."}};
    const auto state = driver.result(request);
    EXPECT_THAT(state.at("statusHistory"), Contains("Cancelling..."));
    EXPECT_EQ(state.at("statusText"), "Cancelled");
    request.erase("cancelWhen");
    EXPECT_EQ(driver.result(request).at("statusText"), "Done");  // the next one starts anew
}

TEST_F(EngineDriverRun, WithoutFilesEndsEarly) {
    folder.makeFolder("src");
    const auto state = driver.result(request);
    EXPECT_EQ(state.at("isRunning"), false);
    EXPECT_EQ(state.at("notification"), nullptr);
    EXPECT_EQ(state.at("allLogLines").back(), "No files found under 1 source folder(s)");
}

}  // namespace
}  // namespace vellomar
