// Pictures of every kind put to the real decoder, and what it makes of them held against an outside program.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "dates/ExifTool.h"
#include "platform/LinuxFileSystem.h"
#include "platform/decoder/PixelDecoder.h"
#include "support/BigEndian.h"
#include "support/DecoderProgram.h"
#include "support/MediaFiles.h"
#include "support/RunTool.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::bigEndian;
using testing::contentOf;
using testing::makePicture;

using Words = std::vector<std::string>;

// Clouds of all brightnesses, the same ones at each call.
const Words kClouds = {"-seed", "7", "-size", "300x200", "plasma:white-black"};

Words operator+(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

class DecoderPixels : public ::testing::Test {
protected:
    std::optional<GreyRaster> rasterOf(const std::string& path) {
        const auto file = disk.openForReading(path, true);
        EXPECT_TRUE(file.has_value()) << path;
        return file ? decoder.readGreyRaster(**file) : std::nullopt;
    }

    // The JPEG file that the decoder makes of a HEIC file; empty if it makes none.
    std::string convert(const std::string& path) {
        const auto file = disk.openForReading(path, true);
        EXPECT_TRUE(file.has_value()) << path;
        if (!file) return {};
        auto memory = decoder.convertToJpeg(**file);
        if (!memory) return {};
        const auto bytes = memory->content().value();
        return folder.write(fmt::format("converted-{}.jpg", ++conversions),
                            {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    // What ImageMagick reduces a picture to, by area averaging as well.
    GreyRaster expectedRaster(const std::string& path, const Words& changes = {}) const {
        const auto raw = folder / "raster.gray";
        testing::runTool(Words{"convert", path + "[0]"} + changes +
                         Words{"-background", "black", "-alpha", "remove", "-alpha", "off", "-grayscale", "Rec601Luma",
                               "-scale", "9x8!", "-depth", "8", raw});
        GreyRaster raster;
        const auto bytes = contentOf(raw);
        EXPECT_EQ(bytes.size(), raster.pixels.size());
        std::ranges::copy(bytes, raster.pixels.begin());
        return raster;
    }

    static void expectAlike(const std::optional<GreyRaster>& raster, const GreyRaster& expected, int tolerance) {
        ASSERT_TRUE(raster.has_value());
        int worst = 0;
        for (std::size_t i = 0; i < expected.pixels.size(); ++i)
            worst = std::max(worst, std::abs(raster->pixels[i] - expected.pixels[i]));
        EXPECT_LE(worst, tolerance);
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem disk;
    PixelDecoder decoder{testing::pixelDecoderProgram()};
    int conversions = 0;
};

TEST_F(DecoderPixels, EveryFormatIsReducedAlike) {
    const std::vector<std::pair<std::string, Words>> cases = {
        {"colour.jpg", {}},
        {"progressive.jpg", {"-interlace", "JPEG"}},
        {"rgb.jpg", {"-sampling-factor", "1x1", "-quality", "98"}},
        {"colour.png", {}},
        {"interlaced.png", {"-interlace", "PNG"}},
        {"deep.png", {"-depth", "16"}},
        {"colour.tif", {"-compress", "none"}},
        {"packed.tif", {"-compress", "LZW"}},
        {"deep.tif", {"-depth", "16"}},
        {"colour.webp", {"-quality", "95"}},
        {"lossless.webp", {"-define", "webp:lossless=true"}},
        {"colour.gif", {}},
        {"colour.bmp", {}},
        {"old.bmp", {"-define", "bmp:format=bmp2"}},
        {"colour.heic", {}},
        {"colour.avif", {}},
    };
    constexpr int kLossAndRounding = 4;
    const auto clouds = expectedRaster(makePicture(folder, "reference.png", kClouds));
    for (const auto& [name, arguments] : cases) {
        SCOPED_TRACE(name);
        expectAlike(rasterOf(makePicture(folder, name, kClouds + arguments)), clouds, kLossAndRounding);
    }
}

TEST_F(DecoderPixels, PicturesOfFewColoursAreReducedAlike) {
    const std::vector<std::pair<std::string, Words>> cases = {
        {"grey.jpg", {"-colorspace", "gray"}},    {"grey.png", {"-colorspace", "gray"}},
        {"grey.tif", {"-colorspace", "gray"}},    {"few.png", {"-colors", "16"}},
        {"black-and-white.png", {"-monochrome"}}, {"few.bmp", {"-colors", "16", "-type", "palette"}}};
    for (const auto& [name, arguments] : cases) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, kClouds + arguments);
        expectAlike(rasterOf(path), expectedRaster(path), 1);
    }
}

// As programs for high dynamic range write them: light, not brightness.
TEST_F(DecoderPixels, RealNumbersAreLight) {
    const auto path = folder / "light.tif";
    testing::runTool(Words{"convert"} + kClouds +
                     Words{"-colorspace", "RGB", "-depth", "32", "-compress", "LZW", "-define",
                           "quantum:format=floating-point", path});
    expectAlike(rasterOf(path), expectedRaster(makePicture(folder, "reference.png", kClouds)), 4);
}

TEST_F(DecoderPixels, WhatIsTransparentIsBlack) {
    const Words halfClear = {"-size", "300x200", "xc:white", "(",        "-size",       "300x200",   "gradient:",
                             ")",     "-alpha",  "off",      "-compose", "CopyOpacity", "-composite"};
    for (const auto* name : {"clear.png", "clear.tif", "clear.webp", "clear.heic"}) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, halfClear);
        expectAlike(rasterOf(path), expectedRaster(makePicture(folder, "reference.png", halfClear)), 4);
    }
}

TEST_F(DecoderPixels, ColoursOfPrintAreInkOnPaper) {
    for (const auto* name : {"print.jpg", "print.tif"}) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, kClouds + Words{"-colorspace", "CMYK"});
        expectAlike(rasterOf(path), expectedRaster(makePicture(folder, "reference.png", kClouds)), 6);
    }
}

TEST_F(DecoderPixels, NoOrientationIsHonoured) {
    const auto stored = expectedRaster(makePicture(folder, "reference.png", kClouds));
    for (const auto* name : {"turned.jpg", "turned.tif", "turned.png", "turned.webp"}) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, kClouds);
        testing::runTool({"exiftool", "-q", "-overwrite_original", "-n", "-IFD0:Orientation=6", path});
        expectAlike(rasterOf(path), stored, 4);
    }
}

TEST_F(DecoderPixels, OnlyTheFirstPictureCounts) {
    const auto first = expectedRaster(makePicture(folder, "reference.png", kClouds));
    for (const auto* name : {"two.tif", "two.gif"}) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, kClouds + Words{"-size", "300x200", "xc:black"});
        expectAlike(rasterOf(path), first, 4);
    }
}

TEST_F(DecoderPixels, AJpegThatBreaksOffCountsAsFarAsItGoes) {
    const auto whole = contentOf(makePicture(folder, "whole.jpg", kClouds));
    const auto raster = rasterOf(folder.write("half.jpg", std::string_view(whole).substr(0, whole.size() / 2)));
    ASSERT_TRUE(raster.has_value());
    const auto expected = expectedRaster(folder / "whole.jpg");
    for (std::size_t i = 0; i < 2 * GreyRaster::kWidth; ++i)
        EXPECT_NEAR(raster->pixels[i], expected.pixels[i], 3) << i;
}

TEST_F(DecoderPixels, BrokenFilesHaveNone) {
    for (const auto* name : {"a.jpg", "a.png", "a.tif", "a.webp", "a.gif", "a.bmp", "a.heic"}) {
        SCOPED_TRACE(name);
        const auto whole = contentOf(makePicture(folder, name, kClouds));
        EXPECT_EQ(rasterOf(folder.write(name, std::string_view(whole).substr(0, 20))), std::nullopt);
    }
    EXPECT_EQ(rasterOf(folder.write("empty.jpg", "")), std::nullopt);
    EXPECT_EQ(rasterOf(folder.write("text.png", "no picture")), std::nullopt);
    EXPECT_EQ(
        rasterOf(folder.write("drawing.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)")),
        std::nullopt);
}

TEST_F(DecoderPixels, AHostileSizeIsNotDecoded) {
    // The sizes that the pictures claim are patched into good ones; a PNG's checksum does not matter to its reader.
    auto png = contentOf(makePicture(folder, "huge.png", {"-size", "10x10", "xc:red"}));
    png.replace(16, 8, bigEndian(1'000'000) + bigEndian(1'000'000));
    EXPECT_EQ(rasterOf(folder.write("huge.png", png)), std::nullopt);
    auto jpeg = contentOf(makePicture(folder, "huge.jpg", {"-size", "10x10", "xc:red"}));
    jpeg.replace(jpeg.find("\xff\xc0") + 5, 4, "\xff\xff\xff\xff");
    EXPECT_EQ(rasterOf(folder.write("huge.jpg", jpeg)), std::nullopt);
    EXPECT_TRUE(rasterOf(makePicture(folder, "good.jpg", kClouds)).has_value());
}

// Gives a HEIC file a property that says how often it is to be turned to the left, in place of another of its own.
std::string turned(const testing::TemporaryFolder& folder, const std::string& path, char quarters) {
    auto bytes = contentOf(path);
    const auto property = bytes.find("pixi");
    EXPECT_NE(property, std::string::npos);
    bytes.replace(property, 5, std::string("irot") + quarters);
    return folder.write("turned.heic", bytes);
}

TEST_F(DecoderPixels, AHeicIsHashedAsItIsStored) {
    const auto path = makePicture(folder, "a.heic", kClouds);
    const auto stored = rasterOf(path);
    ASSERT_TRUE(stored.has_value());
    EXPECT_EQ(rasterOf(turned(folder, path, 1)), stored);
}

TEST_F(DecoderPixels, AHeicBecomesAnUprightJpeg) {
    const auto path = makePicture(folder, "a.heic", kClouds);
    const auto reference = folder / "a.heic.source.png";
    expectAlike(rasterOf(convert(path)), expectedRaster(reference), 4);
    const std::vector<std::pair<char, std::string>> turns = {{1, "270"}, {2, "180"}, {3, "90"}};
    for (const auto& [quarters, degrees] : turns) {
        SCOPED_TRACE(degrees);
        expectAlike(rasterOf(convert(turned(folder, path, quarters))), expectedRaster(reference, {"-rotate", degrees}),
                    4);
    }
}

TEST_F(DecoderPixels, HeicOfTenBitsAndWithTransparencyBecomeJpeg) {
    const auto deep = makePicture(folder, "deep.png", kClouds + Words{"-depth", "16"});
    testing::runTool({"heif-enc", "-b", "10", deep, "-o", folder / "deep.heic"});
    expectAlike(rasterOf(convert(folder / "deep.heic")), expectedRaster(deep), 4);
    const Words halfClear = {"-size", "300x200", "xc:black", "(",        "-size",       "300x200",   "gradient:",
                             ")",     "-alpha",  "off",      "-compose", "CopyOpacity", "-composite"};
    const auto clear = makePicture(folder, "clear.heic", halfClear);
    expectAlike(rasterOf(convert(clear)),
                expectedRaster(folder / "clear.heic.source.png", {"-background", "white", "-alpha", "remove"}), 4);
}

TEST_F(DecoderPixels, OfSeveralPicturesInAHeicTheFirstBecomesJpeg) {
    const auto first = makePicture(folder, "first.jpg", kClouds);
    const auto second = makePicture(folder, "second.jpg", {"-size", "300x200", "xc:black"});
    testing::runTool({"heif-enc", first, second, "-o", folder / "both.heic"});
    expectAlike(rasterOf(convert(folder / "both.heic")), expectedRaster(first), 4);
}

TEST_F(DecoderPixels, TheJpegHasQuality92AndNoMetadata) {
    const auto path = makePicture(folder, "a.heic", kClouds);
    testing::runTool({"exiftool", "-q", "-overwrite_original", "-n", "-EXIF:DateTimeOriginal=2023:08:14 14:30:21",
                      "-EXIF:GPSLatitude=48.1", "-EXIF:Model=Camera", "-XMP:Title=Title", path});
    const auto jpeg = convert(path);
    const ExifUtils::ExifTool exifTool(disk);
    const auto told = exifTool.runExifToolJSON(Words{"-j", "-G1", "-a", "-JPEGQualityEstimate", "-all", jpeg},
                                               std::chrono::seconds(30));
    ASSERT_TRUE(told.has_value());
    EXPECT_EQ(told->at(0).at("File:JPEGQualityEstimate"), 92);
    for (const auto& [name, value] : told->at(0).items()) {
        const auto group = name.substr(0, name.find(':'));
        EXPECT_TRUE(group == "SourceFile" || group == "ExifTool" || group == "System" || group == "File" ||
                    group == "JFIF" || group == "Composite")
            << name;
    }
}

// A profile that says little, at great length.
std::string longColourProfile() {
    constexpr std::uint32_t kLength = 150'000;
    std::string profile = bigEndian(kLength) + std::string(4, '\0') + bigEndian(0x02100000) + "mntrRGB XYZ ";
    profile += std::string(12, '\0') + "acsp";
    profile.resize(68);
    profile += bigEndian(0xf6d6) + bigEndian(0x10000) + bigEndian(0xd32d);
    profile.resize(kLength, 'p');
    std::fill(profile.begin() + 80, profile.begin() + 132, '\0');
    return profile;
}

// What a JPEG file holds of a profile in its segments, in their order, which must be that of their numbers.
std::string profileIn(const std::string& jpeg) {
    std::string profile;
    char number = 0;
    for (std::size_t at = 2; jpeg.at(at + 1) != '\xda';) {
        const auto length = std::size_t{static_cast<unsigned char>(jpeg.at(at + 2))} * 256 +
                            static_cast<unsigned char>(jpeg.at(at + 3));
        const auto segment = jpeg.substr(at + 4, length - 2);
        if (jpeg.at(at + 1) == '\xe2' && segment.starts_with("ICC_PROFILE")) {
            EXPECT_EQ(segment.at(12), ++number);
            EXPECT_EQ(segment.at(13), 3);
            profile += segment.substr(14);
        }
        at += 2 + length;
    }
    return profile;
}

TEST_F(DecoderPixels, TheColourProfileOfAHeicStays) {
    const auto source = makePicture(folder, "source.png", kClouds);
    const auto profile = longColourProfile();
    testing::runTool(
        {"exiftool", "-q", "-overwrite_original", "-icc_profile<=" + folder.write("profile", profile), source});
    testing::runTool({"heif-enc", source, "-o", folder / "a.heic"});
    const auto jpeg = contentOf(convert(folder / "a.heic"));
    EXPECT_EQ(jpeg.substr(6, 4), "JFIF");
    EXPECT_TRUE(profileIn(jpeg) == profile);
}

TEST_F(DecoderPixels, WhatIsNoHeicOrABrokenOneBecomesNoJpeg) {
    EXPECT_EQ(convert(makePicture(folder, "a.jpg", kClouds)), "");
    EXPECT_EQ(convert(folder.write("text.heic", "no picture")), "");
    EXPECT_EQ(convert(folder.write("empty.heic", "")), "");
    const auto whole = contentOf(makePicture(folder, "a.heic", kClouds));
    EXPECT_EQ(convert(folder.write("half.heic", std::string_view(whole).substr(0, whole.size() / 2))), "");
    auto damaged = whole;
    damaged.replace(damaged.find("mdat") + 8, 64, std::string(64, '\x55'));
    static_cast<void>(convert(folder.write("damaged.heic", damaged)));  // whatever comes of it, the next one works
    EXPECT_NE(convert(folder / "a.heic"), "");
}

// Files of real cameras; the samples must hold a file that a RAW library can develop, and ones that it cannot.
class DecoderPixelsOfSamples : public DecoderPixels {
protected:
    static std::string sample(const std::string& name) {
        const char* samples = std::getenv("VELLOMAR_SAMPLES");
        return samples == nullptr ? "" : std::string(samples) + "/" + name;
    }
};

TEST_F(DecoderPixelsOfSamples, ARawIsDevelopedFromItsOwnPixels) {
    if (sample("").empty()) return;
    // The camera wrote the same picture as a small JPEG beside it.
    const auto raw = rasterOf(sample("pairs/CRW_0305.CRW"));
    const auto thumbnail = rasterOf(sample("pairs/CRW_0305.THM"));
    ASSERT_TRUE(raw && thumbnail);
    constexpr int kOtherToneCurve = 60;
    expectAlike(raw, *thumbnail, kOtherToneCurve);
}

TEST_F(DecoderPixelsOfSamples, ARawThatBreaksOffIsKnownByItsPreview) {
    if (sample("").empty()) return;
    for (const auto* name : {"raw/FujiFilm.raf", "raw/sample.arw", "raw/jølstravatnet.pef", "raw/sample.nef"}) {
        SCOPED_TRACE(name);
        const auto raster = rasterOf(sample(name));
        ASSERT_TRUE(raster.has_value());
        EXPECT_NE(*std::ranges::max_element(raster->pixels), *std::ranges::min_element(raster->pixels));
    }
}

TEST_F(DecoderPixelsOfSamples, HeicFilesOfPhonesBecomeJpeg) {
    if (sample("").empty()) return;
    for (const auto* name : {"pairs/IMG_3589.HEIC", "heif/xiaomi.heic", "heif/testHEIF.heic", "heif/Canon.HIF"}) {
        SCOPED_TRACE(name);
        const auto reference = folder / "reference.png";
        testing::runTool({"heif-convert", sample(name), reference});
        expectAlike(rasterOf(convert(sample(name))), expectedRaster(reference, {"+profile", "*"}), 4);
    }
}

TEST_F(DecoderPixelsOfSamples, NoSampleHurtsTheNext) {
    if (sample("").empty()) return;
    const auto good = makePicture(folder, "good.jpg", kClouds);
    const auto expected = rasterOf(good);
    for (const auto& entry : fs::recursive_directory_iterator(sample("broken"))) {
        SCOPED_TRACE(entry.path());
        static_cast<void>(rasterOf(entry.path()));
        static_cast<void>(convert(entry.path()));
        EXPECT_EQ(rasterOf(good), expected);
    }
}

}  // namespace
}  // namespace vellomar
