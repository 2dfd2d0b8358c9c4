// Pictures of every kind made small by the real decoder.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <thread>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/decoder/PixelDecoder.h"
#include "support/BigEndian.h"
#include "support/DecoderProgram.h"
#include "support/MediaFiles.h"
#include "support/RunTool.h"
#include "support/TemporaryFolder.h"
#include "support/TiffBytes.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::bigEndian;
using testing::contentOf;
using testing::makePicture;
using testing::runTool;

using Words = std::vector<std::string>;

constexpr std::uint32_t kRed = 0xffff0000;
constexpr std::uint32_t kGreen = 0xff00ff00;
constexpr std::uint32_t kBlue = 0xff0000ff;
constexpr std::uint32_t kWhite = 0xffffffff;
constexpr std::uint32_t kDarkGrey = 0xff1a1a1a;

// 120x80 pixels: red and green above blue and white. The encoder of HEIC files misreads PNG files with a palette.
const Words kFourColours = {"(",       "-size", "60x40",   "xc:#f00", "xc:#0f0",         "+append",
                            ")",       "(",     "-size",   "60x40",   "xc:#00f",         "xc:#fff",
                            "+append", ")",     "-append", "-define", "png:color-type=2"};

Words joined(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

int channel(std::uint32_t pixel, unsigned shift) {
    return static_cast<int>(pixel >> shift & 0xffU);
}

// The largest difference of a channel.
int distance(std::uint32_t one, std::uint32_t other) {
    int most = 0;
    for (const unsigned shift : {0U, 8U, 16U, 24U})
        most = std::max(most, std::abs(channel(one, shift) - channel(other, shift)));
    return most;
}

// Top left, top right, bottom left, bottom right.
using Corners = std::array<std::uint32_t, 4>;

constexpr Corners kAsMade = {kRed, kGreen, kBlue, kWhite};

Corners cornersOf(const ThumbnailRaster& thumbnail) {
    const int bottom = thumbnail.height - 3;
    const int right = thumbnail.width - 3;
    return {thumbnail.at(2, 2), thumbnail.at(2, right), thumbnail.at(bottom, 2), thumbnail.at(bottom, right)};
}

constexpr int kLoss = 24;  // of lossy formats

void expectCorners(const std::optional<ThumbnailRaster>& thumbnail, const Corners& expected, int tolerance = kLoss) {
    ASSERT_TRUE(thumbnail.has_value());
    const auto corners = cornersOf(*thumbnail);
    for (std::size_t i = 0; i < corners.size(); ++i)
        EXPECT_LE(distance(corners[i], expected[i]), tolerance) << fmt::format("{}: {:08x}", i, corners[i]);
}

void expectSize(const std::optional<ThumbnailRaster>& thumbnail, int width, int height) {
    ASSERT_TRUE(thumbnail.has_value());
    EXPECT_EQ(thumbnail->width, width);
    EXPECT_EQ(thumbnail->height, height);
    EXPECT_EQ(thumbnail->pixels.size(), static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void expectAllOf(const std::optional<ThumbnailRaster>& thumbnail, std::uint32_t colour) {
    ASSERT_TRUE(thumbnail.has_value());
    for (const auto pixel : thumbnail->pixels)
        ASSERT_LE(distance(pixel, colour), kLoss) << fmt::format("{:08x}", pixel);
}

// What the four colours look like once turned by each of EXIF's numbers.
struct Turn {
    int orientation;
    Corners corners;
    bool isTall;
};
constexpr std::array kTurns = {
    Turn{1, {kRed, kGreen, kBlue, kWhite}, false}, Turn{2, {kGreen, kRed, kWhite, kBlue}, false},
    Turn{3, {kWhite, kBlue, kGreen, kRed}, false}, Turn{4, {kBlue, kWhite, kRed, kGreen}, false},
    Turn{5, {kRed, kBlue, kGreen, kWhite}, true},  Turn{6, {kBlue, kRed, kWhite, kGreen}, true},
    Turn{7, {kWhite, kGreen, kBlue, kRed}, true},  Turn{8, {kGreen, kWhite, kRed, kBlue}, true}};

class DecoderPixelsThumbnails : public ::testing::Test {
protected:
    static std::optional<ThumbnailRaster> thumbnailBy(PixelDecoder& decoder, const std::string& path, int size) {
        LinuxFileSystem disk;
        const auto file = disk.openForReading(path, true);
        EXPECT_TRUE(file.has_value()) << path;
        return file ? decoder.makeThumbnail(**file, size) : std::nullopt;
    }

    std::optional<ThumbnailRaster> thumbnailOf(const std::string& path, int size) {
        return thumbnailBy(decoder, path, size);
    }

    std::string fourColours(const std::string& name, const Words& more = {}) const {
        return makePicture(folder, name, joined(kFourColours, more));
    }

    testing::TemporaryFolder folder;
    PixelDecoder decoder{testing::pixelDecoderProgram()};
};

TEST_F(DecoderPixelsThumbnails, EveryOrientationIsTurnedUpright) {
    for (const auto* name : {"turned.jpg", "turned.tif", "turned.png", "turned.webp"}) {
        const auto path = fourColours(name, {"-quality", "98"});
        for (const auto& turn : kTurns) {
            SCOPED_TRACE(fmt::format("{} {}", name, turn.orientation));
            runTool({"exiftool", "-q", "-overwrite_original", "-n",
                     fmt::format("-IFD0:Orientation={}", turn.orientation), path});
            const auto whole = thumbnailOf(path, 200);
            expectSize(whole, turn.isTall ? 80 : 120, turn.isTall ? 120 : 80);
            expectCorners(whole, turn.corners);
            const auto small = thumbnailOf(path, 40);
            expectSize(small, 40, 40);
            expectCorners(small, turn.corners);
        }
    }
}

TEST_F(DecoderPixelsThumbnails, OfAWideAndATallPictureTheMiddleStays) {
    const Words thirds = {"-size", "100x100", "xc:#f00", "xc:#0f0", "xc:#00f"};
    for (const auto* append : {"+append", "-append"})
        for (const auto* format : {"png", "jpg"}) {
            SCOPED_TRACE(fmt::format("{} {}", append, format));
            const auto path =
                makePicture(folder, fmt::format("thirds.{}", format), joined(thirds, {append, "-quality", "98"}));
            const auto thumbnail = thumbnailOf(path, 40);
            expectSize(thumbnail, 40, 40);
            expectCorners(thumbnail, {kGreen, kGreen, kGreen, kGreen});
        }
}

TEST_F(DecoderPixelsThumbnails, TheWholeOfASquareStays) {
    const auto path = makePicture(folder, "square.png",
                                  {"-size", "160x160", "xc:#00f", "-fill", "#f00", "-draw", "rectangle 0,0 159,15"});
    const auto thumbnail = thumbnailOf(path, 40);
    expectSize(thumbnail, 40, 40);
    EXPECT_LE(distance(thumbnail->at(1, 20), kRed), kLoss);
    EXPECT_LE(distance(thumbnail->at(8, 20), kBlue), kLoss);
}

TEST_F(DecoderPixelsThumbnails, NoPictureIsMadeLarger) {
    const auto small = makePicture(folder, "small.png", {"-size", "20x10", "xc:red"});
    expectSize(thumbnailOf(small, 100), 20, 10);
    const auto flat = makePicture(folder, "flat.png",
                                  {"-size", "300x10", "xc:#f00", "-fill", "#0f0", "-draw", "rectangle 100,0 199,9"});
    expectSize(thumbnailOf(flat, 100), 100, 10);
    expectCorners(thumbnailOf(flat, 100), {kGreen, kGreen, kGreen, kGreen});
    expectSize(thumbnailOf(makePicture(folder, "dot.jpg", {"-size", "1x1", "xc:red"}), 512), 1, 1);
    for (const auto* name : {"small.jpg", "small.tif", "small.webp", "small.bmp", "small.heic"}) {
        SCOPED_TRACE(name);
        expectSize(thumbnailOf(makePicture(folder, name, {"-size", "64x66", "xc:red"}), 65), 64, 65);
    }
}

TEST_F(DecoderPixelsThumbnails, EverySizeFrom1To512IsMade) {
    const auto path = makePicture(folder, "large.jpg", {"-size", "1300x1000", "xc:#00f"});
    for (const int size : {1, 2, 31, 32, 63, 124, 125, 126, 249, 250, 251, 333, 499, 500, 501, 512}) {
        SCOPED_TRACE(size);
        const auto thumbnail = thumbnailOf(path, size);
        expectSize(thumbnail, size, size);
        expectAllOf(thumbnail, kBlue);
    }
    for (const int size : {0, -1, 513, 65'536 + 8, -65'536 + 8})
        EXPECT_EQ(thumbnailOf(path, size), std::nullopt) << size;
}

TEST_F(DecoderPixelsThumbnails, EveryFormatShowsTheSame) {
    const std::vector<std::pair<std::string, Words>> cases = {
        {"colour.jpg", {}},
        {"colour.jpeg", {"-sampling-factor", "1x1"}},
        {"progressive.jpg", {"-interlace", "JPEG"}},
        {"colour.png", {}},
        {"interlaced.png", {"-interlace", "PNG"}},
        {"few.png", {"-colors", "4", "-define", "png:color-type=3"}},
        {"deep.png", {"-depth", "16", "-define", "png:bit-depth=16"}},
        {"colour.tif", {"-compress", "none"}},
        {"packed.tiff", {"-compress", "LZW"}},
        {"deep.tif", {"-depth", "16"}},
        {"colour.webp", {"-define", "webp:lossless=true"}},
        {"colour.bmp", {}},
        {"old.bmp", {"-define", "bmp:format=bmp2"}},
        {"colour.heic", {}},
        {"colour.avif", {}},
        {"colour.gif", {}},
    };
    for (const auto& [name, arguments] : cases) {
        SCOPED_TRACE(name);
        const auto path = fourColours(name, joined({"-quality", "95"}, arguments));
        const auto thumbnail = thumbnailOf(path, 40);
        expectSize(thumbnail, 40, 40);
        expectCorners(thumbnail, kAsMade);
        expectCorners(thumbnailOf(path, 300), kAsMade);
    }
    EXPECT_EQ(thumbnailOf(folder.write("named.jpg", contentOf(folder / "colour.png")), 40),
              thumbnailOf(folder / "colour.png", 40));
}

TEST_F(DecoderPixelsThumbnails, ColoursOfPrintAndGreysAreShown) {
    for (const auto* name : {"print.jpg", "print.tif"}) {
        SCOPED_TRACE(name);
        const auto thumbnail = thumbnailOf(fourColours(name, {"-colorspace", "CMYK"}), 40);
        ASSERT_TRUE(thumbnail.has_value());
        constexpr int kOtherInk = 140;
        expectCorners(thumbnail, kAsMade, kOtherInk);
    }
    for (const auto* name : {"grey.jpg", "grey.png", "grey.tif", "grey.webp"}) {
        SCOPED_TRACE(name);
        const auto path = makePicture(folder, name, {"-size", "90x60", "xc:gray(100)", "-colorspace", "gray"});
        expectAllOf(thumbnailOf(path, 40), 0xff646464);
    }
    const auto deep = makePicture(folder, "deep.png",
                                  {"-size", "90x60", "xc:gray(100)", "-colorspace", "gray", "-depth", "16", "-define",
                                   "png:bit-depth=16", "-define", "png:color-type=0"});
    expectAllOf(thumbnailOf(deep, 40), 0xff646464);
}

TEST_F(DecoderPixelsThumbnails, WhatIsTransparentIsDarkGrey) {
    const Words halfClear = {"(",       "-size", "60x80",   "xc:none",         "xc:#fff",
                             "+append", ")",     "-define", "png:color-type=6"};
    for (const auto* name : {"clear.png", "clear.tif", "clear.webp", "clear.heic"}) {
        SCOPED_TRACE(name);
        expectCorners(thumbnailOf(makePicture(folder, name, halfClear), 40), {kDarkGrey, kWhite, kDarkGrey, kWhite});
    }
    const auto deep =
        makePicture(folder, "deep.png",
                    joined(halfClear, {"-define", "png:color-type=6", "-define", "png:bit-depth=16", "-depth", "16"}));
    expectCorners(thumbnailOf(deep, 40), {kDarkGrey, kWhite, kDarkGrey, kWhite});
    const auto veil = makePicture(folder, "veil.png", {"-size", "60x60", "xc:rgba(255,255,255,0.5)"});
    expectAllOf(thumbnailOf(veil, 40), 0xff8c8c8c);
    const auto grey = makePicture(folder, "grey.png", {"-size", "60x60", "xc:none", "-define", "png:color-type=4"});
    expectAllOf(thumbnailOf(grey, 40), kDarkGrey);
}

// One number of a colour profile, in 65,536ths.
std::string fixedPoint(double number) {
    return bigEndian(static_cast<std::uint32_t>(static_cast<std::int32_t>(number * 65'536)));
}

// Says that what is stored as red is green and the other way round.
std::string profileOfSwappedColours() {
    const auto point = [](double x, double y, double z) {
        return "XYZ " + bigEndian(0) + fixedPoint(x) + fixedPoint(y) + fixedPoint(z);
    };
    const auto curve = "curv" + bigEndian(0) + bigEndian(1) + std::string("\x02\x33\0\0", 4);
    const std::vector<std::pair<std::string, std::string>> tags = {{"wtpt", point(0.9642, 1.0, 0.8249)},
                                                                   {"rXYZ", point(0.3851, 0.7169, 0.0971)},
                                                                   {"gXYZ", point(0.4361, 0.2225, 0.0139)},
                                                                   {"bXYZ", point(0.1431, 0.0606, 0.7141)},
                                                                   {"rTRC", curve},
                                                                   {"gTRC", curve},
                                                                   {"bTRC", curve}};
    constexpr std::size_t kHeader = 128;
    std::string table = bigEndian(static_cast<std::uint32_t>(tags.size()));
    std::string values;
    for (const auto& [name, value] : tags) {
        const auto offset = kHeader + 4 + 12 * tags.size() + values.size();
        table +=
            name + bigEndian(static_cast<std::uint32_t>(offset)) + bigEndian(static_cast<std::uint32_t>(value.size()));
        values += value;
    }
    const auto length = static_cast<std::uint32_t>(kHeader + table.size() + values.size());
    std::string header = bigEndian(length) + std::string(4, '\0') + bigEndian(0x02100000) + "mntrRGB XYZ ";
    header += std::string(12, '\0') + "acsp";
    header.resize(68);
    header += fixedPoint(0.9642) + fixedPoint(1.0) + fixedPoint(0.8249);
    header.resize(kHeader);
    return header + table + values;
}

TEST_F(DecoderPixelsThumbnails, ColoursAreWhatTheProfileSays) {
    const auto profile = folder.write("profile", profileOfSwappedColours());
    for (const auto* name : {"profile.jpg", "profile.png", "profile.tif", "profile.webp"}) {
        SCOPED_TRACE(name);
        const auto path = fourColours(name, {"-quality", "98"});
        runTool({"exiftool", "-q", "-overwrite_original", "-icc_profile<=" + profile, path});
        expectCorners(thumbnailOf(path, 40), {kGreen, kRed, kBlue, kWhite});
    }
    runTool({"heif-enc", folder / "profile.png", "-o", folder / "profile.heic"});
    expectCorners(thumbnailOf(folder / "profile.heic", 40), {kGreen, kRed, kBlue, kWhite});
}

TEST_F(DecoderPixelsThumbnails, ABrokenProfileIsPassedOver) {
    const auto profile = folder.write("profile", profileOfSwappedColours().substr(0, 140) + std::string(60, 'p'));
    for (const auto* name : {"profile.jpg", "profile.png", "profile.tif"}) {
        SCOPED_TRACE(name);
        const auto path = fourColours(name, {"-quality", "98"});
        runTool({"exiftool", "-q", "-m", "-overwrite_original", "-icc_profile<=" + profile, path});
        expectCorners(thumbnailOf(path, 40), kAsMade);
    }
}

// Gives a HEIC file a property that says how often its picture is to be turned to the left, in place of another.
std::string turnedHeic(const testing::TemporaryFolder& folder, const std::string& path, char quarters) {
    auto bytes = contentOf(path);
    const auto property = bytes.find("pixi");
    EXPECT_NE(property, std::string::npos);
    bytes.replace(property, 5, std::string("irot") + quarters);
    return folder.write("turned.heic", bytes);
}

TEST_F(DecoderPixelsThumbnails, AHeicIsTurnedAsItSays) {
    const auto source = fourColours("source.png", {"-scale", "400%"});
    for (const Words& more : {Words{}, Words{"-t", "120"}}) {
        SCOPED_TRACE(more.size());
        const auto path = folder / "a.heic";
        runTool(joined({"heif-enc", source, "-o", path}, more));
        expectCorners(thumbnailOf(path, 60), kAsMade);
        expectCorners(thumbnailOf(turnedHeic(folder, path, 1), 60), kTurns[7].corners);
        expectCorners(thumbnailOf(turnedHeic(folder, path, 3), 60), kTurns[5].corners);
        expectSize(thumbnailOf(turnedHeic(folder, path, 3), 512), 320, 480);
    }
    expectCorners(
        thumbnailOf(turnedHeic(folder, makePicture(folder, "b.heic", {source, "-define", "png:color-type=2"}), 2), 60),
        kTurns[2].corners);
}

TEST_F(DecoderPixelsThumbnails, AHeicShowsItsThumbnailWhereThatIsLargeEnough) {
    const auto source = makePicture(folder, "source.png", {"-seed", "7", "-size", "600x400", "plasma:"});
    const auto path = folder / "a.heic";
    runTool({"heif-enc", "-t", "150", source, "-o", path});
    const auto small = thumbnailOf(path, 100);
    const auto large = thumbnailOf(path, 101);
    expectSize(large, 101, 101);
    auto bytes = contentOf(path);
    const auto data = bytes.find("mdat");
    ASSERT_NE(data, std::string::npos);
    bytes.replace(data + 200, 100, std::string(100, '\x55'));  // in the picture itself
    const auto broken = folder.write("broken.heic", bytes);
    EXPECT_EQ(thumbnailOf(broken, 100), small);
    EXPECT_NE(thumbnailOf(broken, 101), large);
}

// The simplest RAW file: a DNG file of grey samples of 16 bits behind a colour filter.
class RawFileMade {
public:
    void setOrientation(std::uint32_t orientation) { orientation_ = orientation; }
    void setPreview(std::string jpeg) { preview_ = std::move(jpeg); }

    [[nodiscard]] std::string bytes() const {
        const auto pixels = samples();
        const auto pixelsAt = testing::kTiffHeaderLength + testing::tiffDirectoryLength(kEntries);
        const auto secondAt = pixelsAt + static_cast<std::uint32_t>(pixels.size());
        const auto first = firstDirectory(pixelsAt, preview_.empty() ? 0 : secondAt);
        auto picture = testing::tiffHeader() + first + pixels;
        if (preview_.empty()) return picture;
        const auto previewAt = secondAt + testing::tiffDirectoryLength(3);
        return picture +
               testing::tiffDirectory({testing::tiffWord(259, 6), testing::tiffNumber(513, previewAt),
                                       testing::tiffNumber(514, static_cast<std::uint32_t>(preview_.size()))}) +
               preview_;
    }

private:
    static constexpr std::uint32_t kWidth = 96;
    static constexpr std::uint32_t kHeight = 64;
    static constexpr std::size_t kEntries = 17;

    // The upper half is bright.
    static std::string samples() {
        std::string bytes(std::size_t{2} * kWidth * kHeight, '\x08');
        std::fill_n(bytes.begin(), bytes.size() / 2, '\x70');
        return bytes;
    }

    [[nodiscard]] std::string firstDirectory(std::uint32_t pixelsAt, std::uint32_t next) const {
        using testing::tiffEntry;
        using testing::tiffNumber;
        using testing::tiffText;
        using testing::tiffWord;
        using enum testing::TiffType;
        const Words entries = {tiffNumber(254, 0),
                               tiffNumber(256, kWidth),
                               tiffNumber(257, kHeight),
                               tiffWord(258, 16),
                               tiffWord(259, 1),
                               tiffWord(262, 32803),
                               tiffText(271, "Sam"),
                               tiffText(272, "One"),
                               tiffNumber(273, pixelsAt),
                               tiffWord(274, orientation_),
                               tiffWord(277, 1),
                               tiffNumber(278, kHeight),
                               tiffNumber(279, 2 * kWidth * kHeight),
                               tiffEntry(33421, word, 2, std::string("\0\2\0\2", 4)),
                               tiffEntry(33422, byte, 4, std::string("\0\1\1\2", 4)),
                               tiffEntry(50706, byte, 4, std::string("\1\4\0\0", 4)),
                               tiffText(50708, "One")};
        EXPECT_EQ(entries.size(), kEntries);
        return testing::tiffDirectory(entries, next);
    }

    std::uint32_t orientation_ = 1;
    std::string preview_;
};

int brightnessAt(const ThumbnailRaster& thumbnail, int row, int column) {
    return channel(thumbnail.at(row, column), 8);
}

TEST_F(DecoderPixelsThumbnails, ARawWithoutAPreviewIsDeveloped) {
    RawFileMade raw;
    auto thumbnail = thumbnailOf(folder.write("a.dng", raw.bytes()), 20);
    expectSize(thumbnail, 20, 20);
    EXPECT_GT(brightnessAt(*thumbnail, 3, 10), brightnessAt(*thumbnail, 16, 10) + 50);
    raw.setOrientation(6);
    thumbnail = thumbnailOf(folder.write("turned.dng", raw.bytes()), 20);
    expectSize(thumbnail, 20, 20);
    EXPECT_GT(brightnessAt(*thumbnail, 10, 16), brightnessAt(*thumbnail, 10, 3) + 50);
}

TEST_F(DecoderPixelsThumbnails, ARawShowsItsPreviewTurnedAsTheRawSays) {
    RawFileMade raw;
    raw.setPreview(contentOf(fourColours("preview.jpg", {"-quality", "98"})));
    for (const auto& turn : kTurns) {
        SCOPED_TRACE(turn.orientation);
        raw.setOrientation(static_cast<std::uint32_t>(turn.orientation));
        const auto path = folder.write("a.dng", raw.bytes());
        expectCorners(thumbnailOf(path, 40), turn.corners);
        expectSize(thumbnailOf(path, 512), turn.isTall ? 80 : 120, turn.isTall ? 120 : 80);
    }
}

TEST_F(DecoderPixelsThumbnails, APreviewThatSaysItselfHowItLiesIsTurnedOnce) {
    const auto preview = fourColours("preview.jpg", {"-quality", "98"});
    runTool({"exiftool", "-q", "-overwrite_original", "-n", "-IFD0:Orientation=6", preview});
    RawFileMade raw;
    raw.setPreview(contentOf(preview));
    raw.setOrientation(6);
    expectCorners(thumbnailOf(folder.write("a.dng", raw.bytes()), 40), kTurns[5].corners);
}

TEST_F(DecoderPixelsThumbnails, ARawWhosePreviewIsBrokenIsDeveloped) {
    RawFileMade raw;
    const auto preview = contentOf(fourColours("preview.jpg", {"-quality", "98"}));
    raw.setPreview(preview.substr(0, preview.size() / 2));
    const auto thumbnail = thumbnailOf(folder.write("a.dng", raw.bytes()), 20);
    expectSize(thumbnail, 20, 20);
    EXPECT_GT(brightnessAt(*thumbnail, 3, 10), brightnessAt(*thumbnail, 16, 10) + 50);
}

// The RAW library takes 307,200 bytes of anything for the sensor of a camera that writes nothing else.
TEST_F(DecoderPixelsThumbnails, AFileOfTheRightLengthIsNoRaw) {
    EXPECT_EQ(thumbnailOf(folder.write("a.raw", std::string(307'200, 'x')), 40), std::nullopt);
}

TEST_F(DecoderPixelsThumbnails, ABrokenFileHasNone) {
    const auto good = fourColours("good.png");
    const auto expected = thumbnailOf(good, 40);
    ASSERT_TRUE(expected.has_value());
    const Words noise = {"-seed", "7", "-size", "300x200", "plasma:"};
    for (const auto* name : {"a.jpg", "a.png", "a.tif", "a.webp", "a.bmp", "a.heic", "a.avif"}) {
        const auto whole = contentOf(makePicture(folder, name, noise));
        for (const auto length : {std::size_t{0}, std::size_t{1}, std::size_t{20}, whole.size() / 2}) {
            SCOPED_TRACE(fmt::format("{} {}", name, length));
            EXPECT_EQ(thumbnailOf(folder.write(name, std::string_view(whole).substr(0, length)), 40), std::nullopt);
            EXPECT_EQ(thumbnailOf(good, 40), expected);
        }
    }
    for (const auto& content : {std::string("no picture"), std::string(100'000, 'x'), std::string(100'000, '\0'),
                                std::string("\xff\xd8\xff"), std::string("II*\0\x08\0\0\0", 8)}) {
        EXPECT_EQ(thumbnailOf(folder.write("garbage", content), 40), std::nullopt) << content.substr(0, 10);
        EXPECT_EQ(thumbnailOf(good, 40), expected);
    }
}

TEST_F(DecoderPixelsThumbnails, AHostileSizeIsNotDecoded) {
    auto png = contentOf(makePicture(folder, "huge.png", {"-size", "10x10", "xc:red"}));
    png.replace(16, 8, bigEndian(1'000'000) + bigEndian(1'000'000));
    EXPECT_EQ(thumbnailOf(folder.write("huge.png", png), 40), std::nullopt);
    auto jpeg = contentOf(makePicture(folder, "huge.jpg", {"-size", "10x10", "xc:red"}));
    jpeg.replace(jpeg.find("\xff\xc0") + 5, 4, "\xff\xff\xff\xff");
    EXPECT_EQ(thumbnailOf(folder.write("huge.jpg", jpeg), 40), std::nullopt);
    auto bmp = contentOf(makePicture(folder, "huge.bmp", {"-size", "10x10", "xc:red"}));
    bmp.replace(18, 8, std::string("\xa0\x86\x01\0\xa0\x86\x01\0", 8));
    EXPECT_EQ(thumbnailOf(folder.write("huge.bmp", bmp), 40), std::nullopt);
    EXPECT_TRUE(thumbnailOf(fourColours("good.jpg"), 40).has_value());
}

TEST_F(DecoderPixelsThumbnails, TheWholeFileIsReadWhereverItWasReadTo) {
    LinuxFileSystem disk;
    const auto path = fourColours("a.jpg");
    const auto expected = thumbnailOf(path, 40);
    const auto file = disk.openForReading(path, true);
    std::array<std::byte, 100> read{};
    ASSERT_TRUE((*file)->read(read).has_value());
    EXPECT_EQ(decoder.makeThumbnail(**file, 40), expected);
    EXPECT_EQ(decoder.makeThumbnail(**file, 40), expected);
}

TEST_F(DecoderPixelsThumbnails, TwoDecodersWorkAtATime) {
    const auto path = fourColours("a.jpg");
    const auto expected = thumbnailOf(path, 40);
    ASSERT_TRUE(expected.has_value());
    std::array<int, 2> right{};
    constexpr int kRequests = 20;
    const auto work = [&](int& count) {
        PixelDecoder own{testing::pixelDecoderProgram()};
        for (int i = 0; i < kRequests; ++i)
            count += thumbnailBy(own, path, 40) == expected ? 1 : 0;
    };
    std::thread first(work, std::ref(right[0]));
    std::thread second(work, std::ref(right[1]));
    first.join();
    second.join();
    EXPECT_EQ(right[0], kRequests);
    EXPECT_EQ(right[1], kRequests);
}

TEST_F(DecoderPixelsThumbnails, WhateverOneFileDoesItCostsOnlyItsOwnThumbnail) {
    const auto good = folder.write("good", "good");
    for (const auto* misdeed : {"crash", "exit", "compute", "sleep", "stop", "babble", "throw", "large", "missing"}) {
        SCOPED_TRACE(misdeed);
        PixelDecoder unruly{UNRULY_DECODER};
        expectSize(thumbnailBy(unruly, good, 40), 1, 1);
        EXPECT_EQ(thumbnailBy(unruly, folder.write(misdeed, misdeed), 40), std::nullopt);
        expectSize(thumbnailBy(unruly, good, 40), 1, 1);
    }
}

// Files of real cameras.
class DecoderPixelsThumbnailsOfSamples : public DecoderPixelsThumbnails {
protected:
    static std::string sample(const std::string& name) {
        const char* samples = std::getenv("VELLOMAR_SAMPLES");
        return samples == nullptr ? "" : std::string(samples) + "/" + name;
    }
};

TEST_F(DecoderPixelsThumbnailsOfSamples, WhatDecodesElsewhereGivesAPicture) {
    if (sample("").empty()) return;
    const std::set<std::string> extensions = {"jpg", "jpeg", "png", "heic", "heif", "tif", "tiff", "bmp", "webp",
                                              "arw", "cr2",  "cr3", "nef",  "orf",  "raf", "rw2",  "dng"};
    // No program shows these: they begin twice, have no size, or had their pictures taken out.
    const std::set<std::string> without = {"olympus_makernote_variant_4.jpg", "exif.png", "CanonRaw.cr3"};
    int pictures = 0;
    for (const auto& entry : fs::recursive_directory_iterator(sample(""))) {
        const auto path = entry.path().string();
        if (path.starts_with(sample("broken")) || !extensions.contains(lowercased(pathExtension(path)))) continue;
        SCOPED_TRACE(path);
        const auto name = entry.path().filename().string();
        for (const int size : {40, 160, 512})
            EXPECT_EQ(thumbnailOf(path, size).has_value(), !without.contains(name)) << size;
        ++pictures;
    }
    EXPECT_GT(pictures, 50);
}

TEST_F(DecoderPixelsThumbnailsOfSamples, BrokenOnesGiveNothingAndTheNextOneWorks) {
    if (sample("").empty()) return;
    const auto good = fourColours("good.jpg");
    const auto expected = thumbnailOf(good, 40);
    // Of these two only the metadata are broken.
    const std::set<std::string> withPicture = {"image01137.jpg", "infinite_loop_exif.jpg"};
    for (const auto& entry : fs::recursive_directory_iterator(sample("broken"))) {
        SCOPED_TRACE(entry.path());
        const auto name = entry.path().filename().string();
        EXPECT_EQ(thumbnailOf(entry.path(), 40).has_value(), withPicture.contains(name));
        EXPECT_EQ(thumbnailOf(good, 40), expected);
    }
}

// A copy of a file whose first directory says that the picture stands on its head.
std::string standingOnItsHead(std::string bytes) {
    const std::string little("\x12\x01\x03\0\x01\0\0\0\x01\0", 10);
    const std::string big("\x01\x12\0\x03\0\0\0\x01\0\x01", 10);
    const auto at = std::min(bytes.find(little), bytes.find(big));
    EXPECT_NE(at, std::string::npos);
    if (at != std::string::npos) bytes[at + (bytes[at] == '\x12' ? 8 : 9)] = 3;
    return bytes;
}

TEST_F(DecoderPixelsThumbnailsOfSamples, ARawIsTurnedAsItSays) {
    if (sample("").empty()) return;
    for (const auto* name : {"raw/sample.arw", "raw/sample.cr2", "raw/canon-r6.cr3", "raw/jølstravatnet.pef"}) {
        SCOPED_TRACE(name);
        const auto upright = thumbnailOf(sample(name), 120);
        const auto turned = thumbnailOf(folder.write("turned", standingOnItsHead(contentOf(sample(name)))), 120);
        ASSERT_TRUE(upright && turned);
        auto pixels = turned->pixels;
        std::ranges::reverse(pixels);
        int wrong = 0;
        for (std::size_t i = 0; i < pixels.size(); ++i)
            wrong += distance(pixels[i], upright->pixels[i]) > kLoss ? 1 : 0;
        EXPECT_LT(wrong, 20);
    }
}

}  // namespace
}  // namespace vellomar
