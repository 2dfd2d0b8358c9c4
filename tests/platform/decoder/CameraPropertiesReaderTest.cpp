#include <cstdlib>
#include <filesystem>
#include <functional>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "platform/Text.h"
#include "platform/decoder/MetadataDecoder.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/CameraPropertiesReader.h"
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
using testing::makeImage;
using testing::TiffType;

using Words = std::vector<std::string>;

std::optional<CameraProperties> propertiesIn(const std::string& content) {
    return readCameraProperties(std::as_bytes(std::span(content)));
}

// A property, how ExifTool writes it, and how it reads then.
struct Written {
    std::string tag;
    std::function<void(CameraProperties&)> add;
};

std::vector<Written> allWritten() {
    return {{"IFD0:Make=Canon", [](auto& all) { all.cameraMake = "Canon"; }},
            {"IFD0:Model=Canon EOS R5", [](auto& all) { all.cameraModel = "Canon EOS R5"; }},
            {"IFD0:Software=Firmware 1.2", [](auto& all) { all.software = "Firmware 1.2"; }},
            {"IFD0:Artist=A. Name", [](auto& all) { all.artist = "A. Name"; }},
            {"ExifIFD:LensMake=Sigma", [](auto& all) { all.lensMake = "Sigma"; }},
            {"ExifIFD:LensModel=35mm F1.4", [](auto& all) { all.lensModel = "35mm F1.4"; }},
            {"ExifIFD:FocalLength=35.5", [](auto& all) { all.focalLength = 35.5; }},
            {"ExifIFD:FNumber=2.75", [](auto& all) { all.fNumber = 2.75; }},
            {"ExifIFD:ExposureTime=0.0078125", [](auto& all) { all.exposureTime = 0.0078125; }},
            {"ExifIFD:ISO=200", [](auto& all) { all.isoSpeeds = {200}; }},
            {"ExifIFD:Flash=16", [](auto& all) { all.flash = 16; }},
            {"ExifIFD:BrightnessValue=-1.5", [](auto& all) { all.brightness = -1.5; }},
            {"ExifIFD:WhiteBalance=1", [](auto& all) { all.whiteBalance = 1; }},
            {"ExifIFD:MeteringMode=3", [](auto& all) { all.meteringMode = 3; }},
            {"GPS:GPSLatitude=48.5", [](auto& all) { all.latitude = 48.5; }},
            {"GPS:GPSLatitudeRef=S", [](auto& all) { all.latitudeRef = "S"; }},
            {"GPS:GPSLongitude=11.75", [](auto& all) { all.longitude = 11.75; }},
            {"GPS:GPSLongitudeRef=W", [](auto& all) { all.longitudeRef = "W"; }},
            {"GPS:GPSAltitude=519.5", [](auto& all) { all.altitude = 519.5; }}};
}

class CameraPropertiesReader : public ::testing::Test {
protected:
    static void SetUpTestSuite() { prepareImageLibrary(); }

    // What an image of 64x64 pixels with these tags holds.
    std::optional<CameraProperties> propertiesOf(const std::string& name, const Words& tags) {
        const auto path = makeImage(folder, name);
        Words words = {"exiftool", "-q", "-q", "-m", "-n", "-overwrite_original"};
        for (const auto& tag : tags)
            words.push_back("-" + tag);
        words.push_back(path);
        if (!tags.empty()) testing::runTool(words);
        return propertiesIn(contentOf(path));
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    const CameraProperties sizeAlone = [] {
        CameraProperties properties;
        properties.width = 64;
        properties.height = 64;
        return properties;
    }();
};

TEST_F(CameraPropertiesReader, EveryFormatTellsAll) {
    Words tags;
    auto expected = sizeAlone;
    for (const auto& written : allWritten()) {
        tags.push_back(written.tag);
        written.add(expected);
    }
    for (const auto* name : {"a.jpg", "a.tif", "a.png", "a.webp", "a.heic", "a.avif"})
        EXPECT_EQ(propertiesOf(name, tags), expected) << name;
}

TEST_F(CameraPropertiesReader, EachPropertyMayStandAlone) {
    for (const auto& written : allWritten()) {
        auto expected = sizeAlone;
        written.add(expected);
        EXPECT_EQ(propertiesOf("a.jpg", {written.tag}), expected) << written.tag;
    }
}

TEST_F(CameraPropertiesReader, AnImageWithoutMetadataHasItsSize) {
    for (const auto* name : {"a.jpg", "a.tif", "a.png", "a.webp", "a.heic", "a.avif", "a.bmp", "a.gif"}) {
        auto properties = propertiesOf(name, {});
        ASSERT_TRUE(properties.has_value()) << name;
        properties->software.reset();  // the program that made it may say so
        EXPECT_EQ(properties, sizeAlone) << name;
    }
}

TEST_F(CameraPropertiesReader, TheSizeIsThatOfTheStoredPicture) {
    const auto path = testing::makePicture(folder, "a.jpg", {"-size", "30x20", "xc:red"});
    testing::runTool({"exiftool", "-q", "-overwrite_original", "-n", "-IFD0:Orientation=6", "-ExifIFD:ExifImageWidth=7",
                      "-ExifIFD:ExifImageHeight=8", path});
    const auto properties = propertiesIn(contentOf(path));
    ASSERT_TRUE(properties.has_value());
    EXPECT_EQ(properties->width, 30);
    EXPECT_EQ(properties->height, 20);
    const auto heic = propertiesOf("a.heic", {"ExifIFD:ExifImageWidth=7", "ExifIFD:ExifImageHeight=8"});
    EXPECT_EQ(heic, sizeAlone);
}

TEST_F(CameraPropertiesReader, PositionsHaveASideOfTheEarth) {
    for (const auto* latitudeRef : {"N", "S"})
        for (const auto* longitudeRef : {"E", "W"}) {
            const auto properties = propertiesOf(
                "a.jpg", {"GPS:GPSLatitude=33.856722", fmt::format("GPS:GPSLatitudeRef={}", latitudeRef),
                          "GPS:GPSLongitude=151.215028", fmt::format("GPS:GPSLongitudeRef={}", longitudeRef),
                          "GPS:GPSAltitude=12.25", "GPS:GPSAltitudeRef=1"});
            ASSERT_TRUE(properties.has_value());
            EXPECT_NEAR(properties->latitude.value_or(0), 33.856722, 1e-6);
            EXPECT_NEAR(properties->longitude.value_or(0), 151.215028, 1e-6);
            EXPECT_EQ(properties->latitudeRef, latitudeRef);
            EXPECT_EQ(properties->longitudeRef, longitudeRef);
            EXPECT_EQ(properties->altitude, 12.25);
        }
}

// A file of EXIF or GPS entries alone, each with what stands behind the directory for it.
class MetadataMade {
public:
    enum class Kind : std::uint32_t { exif = 0x8769, gps = 0x8825, main = 0 };

    explicit MetadataMade(Kind kind) : kind_(kind) {}

    // With a value of up to four bytes, or longer.
    MetadataMade& add(std::uint32_t tag, TiffType type, std::uint32_t count, std::string value) {
        entries_.push_back({tag, type, count, std::move(value)});
        return *this;
    }

    [[nodiscard]] std::string bytes() const {
        std::string bytes = testing::tiffHeader();
        if (kind_ != Kind::main)
            bytes += testing::tiffDirectory({testing::tiffNumber(
                static_cast<std::uint32_t>(kind_), testing::kTiffHeaderLength + testing::tiffDirectoryLength(1))});
        auto valuesAt = static_cast<std::uint32_t>(bytes.size()) + testing::tiffDirectoryLength(entries_.size());
        Words directory;
        std::string values;
        for (const auto& entry : entries_) {
            const bool isLong = entry.value.size() > 4;
            directory.push_back(
                testing::tiffEntry(entry.tag, entry.type, entry.count, isLong ? bigEndian(valuesAt) : entry.value));
            if (!isLong) continue;
            values += entry.value;
            valuesAt += static_cast<std::uint32_t>(entry.value.size());
        }
        return bytes + testing::tiffDirectory(directory) + values;
    }

private:
    struct Entry {
        std::uint32_t tag;
        TiffType type;
        std::uint32_t count;
        std::string value;
    };

    Kind kind_;
    std::vector<Entry> entries_;
};

std::string fraction(std::uint32_t numerator, std::uint32_t denominator) {
    return bigEndian(numerator) + bigEndian(denominator);
}

// The properties in such a file; empty ones if it has none.
CameraProperties propertiesIn(const MetadataMade& made) {
    return propertiesIn(made.bytes()).value_or(CameraProperties{});
}

constexpr std::uint32_t kFNumber = 0x829d;
constexpr std::uint32_t kIso = 0x8827;
constexpr std::uint32_t kBrightness = 0x9203;
constexpr std::uint32_t kFlash = 0x9209;
constexpr std::uint32_t kLensModel = 0xa434;
constexpr std::uint32_t kLatitude = 2;
constexpr std::uint32_t kMake = 0x010f;

TEST_F(CameraPropertiesReader, OfAnotherTypeAPropertyIsAbsent) {
    using enum MetadataMade::Kind;
    using enum TiffType;
    const std::vector<MetadataMade> cases = {
        MetadataMade(exif).add(kFNumber, text, 4, "2.8"),
        MetadataMade(exif).add(kFNumber, word, 1, testing::bigEndianWord(3)),
        MetadataMade(exif).add(kFlash, text, 2, "1"),
        MetadataMade(exif).add(kFlash, fraction, 1, vellomar::fraction(1, 1)),
        MetadataMade(exif).add(kIso, text, 4, "100"),
        MetadataMade(exif).add(kLensModel, number, 1, bigEndian(7)),
        MetadataMade(exif).add(kLensModel, byte, 4, "35mm"),
        MetadataMade(gps).add(kLatitude, text, 4, "48N"),
        MetadataMade(gps).add(kLatitude, word, 2, testing::bigEndianWord(48) + testing::bigEndianWord(30)),
        MetadataMade(gps).add(1, byte, 1, "N"),
        MetadataMade(main).add(kMake, byte, 3, "Abc"),
    };
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(propertiesIn(cases[i]), CameraProperties{}) << i;
}

TEST_F(CameraPropertiesReader, AFractionOverZeroIsAbsent) {
    using enum MetadataMade::Kind;
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kFNumber, TiffType::fraction, 1, fraction(28, 0))).fNumber,
              std::nullopt);
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kBrightness, TiffType::signedFraction, 1, fraction(1, 0))).brightness,
              std::nullopt);
    EXPECT_EQ(propertiesIn(MetadataMade(gps).add(6, TiffType::fraction, 1, fraction(0, 0))).altitude, std::nullopt);
    for (int broken = 0; broken < 3; ++broken) {
        std::string values;
        for (int i = 0; i < 3; ++i)
            values += fraction(10, i == broken ? 0 : 1);
        EXPECT_EQ(propertiesIn(MetadataMade(gps).add(kLatitude, TiffType::fraction, 3, values)).latitude, std::nullopt);
    }
}

TEST_F(CameraPropertiesReader, FractionsHaveTheSignOfTheirType) {
    using enum MetadataMade::Kind;
    EXPECT_EQ(
        propertiesIn(MetadataMade(exif).add(kFNumber, TiffType::fraction, 1, fraction(4'000'000'000, 1000))).fNumber,
        4'000'000.0);
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kBrightness, TiffType::signedFraction, 1,
                                                  fraction(static_cast<std::uint32_t>(-7), 2)))
                  .brightness,
              -3.5);
}

TEST_F(CameraPropertiesReader, DegreesMinutesAndSecondsAreAdded) {
    const auto latitude = [](const std::string& values, std::uint32_t count) {
        return propertiesIn(MetadataMade(MetadataMade::Kind::gps).add(kLatitude, TiffType::fraction, count, values))
            .latitude;
    };
    EXPECT_EQ(latitude(fraction(48, 1) + fraction(30, 1) + fraction(36, 1), 3), 48.51);
    EXPECT_EQ(latitude(fraction(48, 1) + fraction(453, 10) + fraction(0, 1), 3), 48.755);
    EXPECT_EQ(latitude(fraction(0, 1) + fraction(0, 1) + fraction(0, 1), 3), 0.0);
    EXPECT_EQ(latitude(fraction(90, 1) + fraction(0, 1) + fraction(0, 1), 3), 90.0);
    EXPECT_EQ(latitude(fraction(99, 1) + fraction(30, 1) + fraction(0, 1), 3), 99.5) << "as it stands";
    EXPECT_EQ(latitude(fraction(48, 1) + fraction(30, 1), 2), std::nullopt);
}

TEST_F(CameraPropertiesReader, AllIsoValuesAreKept) {
    using enum MetadataMade::Kind;
    const auto words = testing::bigEndianWord(100) + testing::bigEndianWord(65'535) + testing::bigEndianWord(0);
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kIso, TiffType::word, 3, words)).isoSpeeds,
              (std::vector{100, 65'535, 0}));
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kIso, TiffType::number, 1, bigEndian(102'400))).isoSpeeds,
              std::vector{102'400});
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kIso, TiffType::number, 1, bigEndian(0xffffffff))).isoSpeeds,
              std::vector<int>{});
    std::string many;
    for (std::uint32_t i = 0; i < 30'000; ++i)
        many += testing::bigEndianWord(i);
    EXPECT_EQ(propertiesIn(MetadataMade(exif).add(kIso, TiffType::word, 30'000, many)).isoSpeeds.size(), 64U);
}

TEST_F(CameraPropertiesReader, NumbersStayWhatTheyAre) {
    for (const int mode : {0, 1, 2, 3, 4, 5, 6, 255}) {
        auto expected = sizeAlone;
        expected.meteringMode = mode;
        EXPECT_EQ(propertiesOf("a.jpg", {fmt::format("ExifIFD:MeteringMode={}", mode)}), expected);
    }
}

TEST_F(CameraPropertiesReader, TextsLoseTheirPaddingAndBecomeUtf8) {
    using enum MetadataMade::Kind;
    const std::vector<std::pair<std::string, std::optional<std::string>>> cases = {
        {std::string("NIKON   \0", 9), "NIKON"},
        {"  Leica \t", "Leica"},
        {std::string("\0\0Ricoh", 7), "Ricoh"},
        {std::string("Sony\0\xff\xff garbage", 15), "Sony"},
        {std::string("\0\0\0\0\0\0", 6), std::nullopt},
        {std::string("     \0", 6), std::nullopt},
        {"Jos\xe9 Nu\xf1"
         "ez",
         "José Nuñez"},
        {"José", "José"},
        {"\x93quoted\x94", "\uFFFDquoted\uFFFD"},
        {"cut \xc3", "cut Ã"},
        {"東京", "東京"}};
    for (const auto& [stored, expected] : cases) {
        const MetadataMade made =
            MetadataMade(main).add(kMake, TiffType::text, static_cast<std::uint32_t>(stored.size()), stored);
        EXPECT_EQ(propertiesIn(made).cameraMake, expected) << stored;
    }
}

// The first library knows only some brands of HEIC.
TEST_F(CameraPropertiesReader, WhatOneLibraryCannotReadAnotherDoes) {
    const Words tags = {"IFD0:Make=Canon", "ExifIFD:FNumber=2.75"};
    const auto expected = propertiesOf("a.heic", tags);
    auto content = contentOf(folder / "a.heic");
    constexpr std::size_t kBrand = 8;
    ASSERT_EQ(content.substr(kBrand, 4), "heic");
    content.replace(kBrand, 4, "heim");
    EXPECT_EQ(propertiesIn(content), expected);
    EXPECT_EQ(expected->cameraMake, "Canon");
    EXPECT_EQ(expected->width, 64);
}

TEST_F(CameraPropertiesReader, WhatIsNoImageHasNone) {
    for (const auto& content :
         {std::string(), std::string("x"), std::string("no image"), std::string(100'000, 'x'), std::string("\xff\xd8"),
          std::string("\xff\xd8\xff\xe1"), std::string("II*"), std::string("MM\0*\0\0\0\x08", 8),
          std::string("\x89PNG\r\n\x1a\n"), std::string("RIFF\xff\xff\xff\xffWEBP"),
          std::string(R"(<?xpacket begin=""?><x:xmpmeta xmlns:x="adobe:ns:meta/"></x:xmpmeta>)")})
        EXPECT_EQ(propertiesIn(content), std::nullopt) << content.substr(0, 20);
}

TEST_F(CameraPropertiesReader, AVideoHasNone) {
    for (const auto* name : {"a.mp4", "a.mov", "a.3gp", "a.avi", "a.mkv", "a.mts"}) {
        const auto path = testing::makeVideo(folder, name, {"make=Canon"});
        EXPECT_EQ(propertiesIn(contentOf(path)), std::nullopt) << name;
    }
}

TEST_F(CameraPropertiesReader, NoCutHarms) {
    for (const auto* name : {"a.jpg", "a.tif", "a.png", "a.webp", "a.heic"}) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(propertiesOf(name, {"IFD0:Make=Canon"}).has_value());
        const auto content = contentOf(folder / name);
        const auto step = std::max<std::size_t>(1, content.size() / 200);
        for (std::size_t length = 0; length < content.size(); length += step) {
            const auto cut = propertiesIn(content.substr(0, length)).value_or(CameraProperties{});
            EXPECT_EQ(cut.cameraMake.value_or("Canon"), "Canon") << length;
        }
    }
}

// By way of the decoder's process.
std::optional<CameraProperties> propertiesBy(MetadataDecoder& decoder, const std::string& path) {
    LinuxFileSystem disk;
    const auto file = disk.openForReading(path, true);
    EXPECT_TRUE(file.has_value()) << path;
    return file ? decoder.readProperties(**file) : std::nullopt;
}

TEST_F(CameraPropertiesReader, TheDecoderTellsWhatTheReaderReads) {
    MetadataDecoder decoder(testing::decoderProgram());
    Words tags;
    for (const auto& written : allWritten())
        tags.push_back(written.tag);
    const auto expected = propertiesOf("a.jpg", tags);
    EXPECT_EQ(expected->meteringMode, 3);
    EXPECT_EQ(propertiesBy(decoder, folder / "a.jpg"), expected);
    EXPECT_EQ(propertiesBy(decoder, folder.write("empty.jpg", "")), std::nullopt);
    EXPECT_EQ(propertiesBy(decoder, folder.write("garbage.jpg", "no image")), std::nullopt);
    EXPECT_EQ(propertiesBy(decoder, "/dev/null"), std::nullopt);
    EXPECT_EQ(propertiesBy(decoder, folder / "a.jpg"), expected);
}

TEST_F(CameraPropertiesReader, WhateverOneFileDoesItCostsOnlyItsOwnProperties) {
    const auto good = folder.write("good", "good");
    for (const auto* misdeed : {"crash", "exit", "compute", "sleep", "babble", "throw"}) {
        SCOPED_TRACE(misdeed);
        MetadataDecoder unruly{UNRULY_DECODER};
        EXPECT_EQ(propertiesBy(unruly, good).value_or(CameraProperties{}).cameraModel, "good");
        EXPECT_EQ(propertiesBy(unruly, folder.write(misdeed, misdeed)), std::nullopt);
        EXPECT_EQ(propertiesBy(unruly, good).value_or(CameraProperties{}).cameraModel, "good");
    }
}

// Files of real cameras.
TEST_F(CameraPropertiesReader, SamplesTellWhatTheyHold) {
    const char* samples = std::getenv("VELLOMAR_SAMPLES");
    if (samples == nullptr) return;
    struct Sample {
        std::string name;
        std::string model;
        int width;
        int height;
        std::vector<int> isoSpeeds;
    };
    const std::vector<Sample> cases = {
        {"raw/canon-r6.cr3", "Canon EOS R6", 5472, 3648, {25'600}},
        {"raw/sample.cr2", "Canon PowerShot S90", 3648, 2736, {80}},
        {"raw/sample.arw", "DSLR-A330", 3880, 2600, {100}},
        {"raw/sample.nef", "NIKON D1", 2012, 1324, {}},
        {"raw/FujiFilm.raf", "FinePix S5Pro", 1440, 960, {100}},
        {"raw/Panasonic.rw2", "DMC-LX3", 3724, 2754, {80}},
        {"raw/DNG.dng", "Canon EOS 350D DIGITAL", 3516, 2328, {400}},
        {"heif/Sony.HIF", "ILCE-1", 8640, 5760, {100}},
        {"heif/exif.avif", "iPhone 12 Pro", 192, 256, {32}},
        {"pairs/IMG_3589.HEIC", "iPhone XR", 4032, 3024, {320}},
    };
    MetadataDecoder decoder(testing::decoderProgram());
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        const auto properties = propertiesBy(decoder, fmt::format("{}/{}", samples, one.name));
        ASSERT_TRUE(properties.has_value());
        EXPECT_EQ(properties->cameraModel, one.model);
        EXPECT_EQ(properties->width, one.width);
        EXPECT_EQ(properties->height, one.height);
        EXPECT_EQ(properties->isoSpeeds, one.isoSpeeds);
    }
    for (const auto& entry : fs::directory_iterator(fmt::format("{}/video", samples)))
        EXPECT_EQ(propertiesBy(decoder, entry.path()), std::nullopt) << entry.path();
}

}  // namespace
}  // namespace vellomar
