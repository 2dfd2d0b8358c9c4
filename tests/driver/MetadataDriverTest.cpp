#include <fmt/format.h>
#include <gmock/gmock.h>

#include "driver/DriverProcess.h"
#include "support/MediaFiles.h"

namespace vellomar {
namespace {

using testing::makeImage;
using testing::makeVideo;

class MetadataDriver : public testing::EngineDriver {
protected:
    Json ask(const std::string& op, const std::string& path) { return driver.result({{"op", op}, {"path", path}}); }

    std::string photo(const std::string& name) {
        return makeImage(folder, name,
                         {"EXIF:DateTimeOriginal=2019:05:06 07:08:09", "EXIF:Make=SONY", "EXIF:Model=ILCE-7M3"});
    }
};

TEST_F(MetadataDriver, ParsesExifDates) {
    EXPECT_EQ(driver.result({{"op", "parseExifDate"}, {"text", "2019:05:06 07:08:09"}}),
              epochOf("2019-05-06 07.08.09"));
    EXPECT_EQ(driver.result({{"op", "parseExifDate"}, {"text", "0000:00:00 00:00:00"}}), nullptr);
}

TEST_F(MetadataDriver, ReadsImages) {
    const auto path = photo("a.jpg");
    const Json expected = {{"epoch", epochOf("2019-05-06 07.08.09")},
                           {"text", "2019-05-06 07:08:09"},
                           {"reason", "EXIF DateTimeOriginal"}};
    EXPECT_EQ(ask("readImageDate", path), expected);
    EXPECT_EQ(ask("readImageDate", folder / "missing.jpg"), nullptr);
    EXPECT_EQ(ask("readCameraModel", path), "SONY ILCE-7M3");
    EXPECT_EQ(ask("readCameraModel", folder / "missing.jpg"), "—");
    EXPECT_EQ(driver.result({{"op", "readCameraModel"}, {"path", path}, {"exifCameras", {{path, "told"}}}}), "told");
    EXPECT_EQ(driver.result({{"op", "readCameraModel"}, {"path", path}, {"storageIsNetwork", true}}), "—");
}

TEST_F(MetadataDriver, ReadsAFileAgainWhenItHasChanged) {
    const auto path = photo("a.jpg");
    EXPECT_EQ(ask("readCameraModel", path), "SONY ILCE-7M3");
    folder.write("a.jpg", "no photo any more");
    EXPECT_EQ(ask("readCameraModel", path), "—");
}

TEST_F(MetadataDriver, HashesPictures) {
    const auto falling =
        testing::makePicture(folder, "falling.png", {"-size", "8x90", "gradient:white-black", "-rotate", "270"});
    EXPECT_EQ(ask("perceptualHash", falling), "18446744073709551615");
    EXPECT_EQ(ask("perceptualHash", photo("red.jpg")), "0");
    EXPECT_EQ(ask("perceptualHash", folder.write("text.jpg", "no picture")), nullptr);
    EXPECT_EQ(ask("perceptualHash", folder / "missing.jpg"), nullptr);
}

TEST_F(MetadataDriver, ReadsVideos) {
    const auto found = ask("readVideoDate", makeVideo(folder, "a.mp4", {"creation_time=2021-03-04T05:06:07Z"}));
    EXPECT_EQ(found.at("epoch"), 1'614'834'367);
    EXPECT_EQ(found.at("source"), "AVFoundation commonCreationDate");
    EXPECT_EQ(found.at("score"), 75);
}

TEST_F(MetadataDriver, ReadsSidecars) {
    folder.write("a.xmp", R"(xmp:CreateDate="2019-05-06T07:08:09")");
    const auto found = ask("sidecarCandidate", folder / "a.jpg");
    EXPECT_EQ(found.at("text"), "2019-05-06 07:08:09");
    EXPECT_EQ(found.at("source"), "XMP Sidecar");
    EXPECT_EQ(found.at("score"), 97);
    EXPECT_EQ(ask("sidecarCandidate", folder / "b.jpg"), nullptr);
}

TEST_F(MetadataDriver, AsksNeighboursForTheirYear) {
    const auto neighbour = photo("a.jpg");
    const Json entries = {neighbour, folder / "b.jpg"};
    EXPECT_EQ(driver.result({{"op", "siblingYear"}, {"entries", entries}, {"file", folder / "b.jpg"}}), 2019);
    EXPECT_EQ(driver.result({{"op", "siblingYear"}, {"entries", entries}, {"file", neighbour}}), nullptr);
}

TEST_F(MetadataDriver, FindsExifTool) {
    const auto found = driver.result({{"op", "locateExifTool"}});
    EXPECT_THAT(found.at("executable").get<std::string>(), ::testing::EndsWith("/exiftool"));
    EXPECT_EQ(found.at("leadingArguments"), Json::array());
}

TEST_F(MetadataDriver, ReadsBatches) {
    const auto path = photo("a.jpg");
    const auto none = folder.write("b.jpg", "no photo");
    const auto result = driver.result(
        {{"op", "batchReadExif"}, {"files", {path, none}}, {"kind", "image"}, {"chunkSize", 1}, {"timeout", 30}});
    EXPECT_EQ(result.at("dates").at(path).at("text"), "2019-05-06 07:08:09");
    EXPECT_EQ(result.at("dates").at(path).at("source"), "ExifTool DateTimeOriginal");
    EXPECT_EQ(result.at("dates").at(path).at("score"), 100);
    EXPECT_EQ(result.at("cameras"), Json({{path, "SONY ILCE-7M3"}}));
    EXPECT_EQ(result.at("progress"), Json::array({{1, 2}, {2, 2}}));
}

TEST_F(MetadataDriver, RunsWithTheDatesInsideOfFiles) {
    folder.makeFolder("src");
    photo("src/a.jpg");
    const auto dest = folder.makeFolder("dest");
    const auto state =
        driver.result({{"op", "run"}, {"sources", {folder / "src"}}, {"dest", dest}, {"options", {{"dryRun", true}}}});
    const auto& rows = state.at("previewRows");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].at("cameraModel"), "SONY ILCE-7M3");
    EXPECT_THAT(state.at("allLogLines").get<std::vector<std::string>>(),
                ::testing::Contains("ExifTool batch: 1 dates, 1 cameras from 1 files"));
}

}  // namespace
}  // namespace vellomar
