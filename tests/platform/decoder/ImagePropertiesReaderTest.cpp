#include <cstring>

#include <gtest/gtest.h>

#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/HeifExif.h"
#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"
#include "support/MediaFiles.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using testing::contentOf;
using testing::makeImage;

std::span<const std::byte> bytesOf(const std::string& content) {
    return std::as_bytes(std::span(content));
}

class ImagePropertiesReader : public ::testing::Test {
protected:
    static void SetUpTestSuite() { prepareImageLibrary(); }

    static ImageProperties propertiesOf(const std::string& path) {
        return readImageProperties(bytesOf(contentOf(path)));
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    const std::vector<std::string> allTags = {
        "EXIF:DateTimeOriginal=2023:08:14 14:30:21", "EXIF:CreateDate=2023:08:14 14:30:22",
        "EXIF:ModifyDate=2023:08:14 14:30:23", "EXIF:Make=Canon", "EXIF:Model=Canon EOS R5"};
    const ImageProperties allProperties = {.dateTimeOriginal = "2023:08:14 14:30:21",
                                           .dateTimeDigitized = "2023:08:14 14:30:22",
                                           .dateTime = "2023:08:14 14:30:23",
                                           .make = "Canon",
                                           .model = "Canon EOS R5"};
};

TEST_F(ImagePropertiesReader, EveryFormatTellsAllFive) {
    for (const auto* name : {"a.jpg", "a.tif", "a.png", "a.webp", "a.heic", "a.avif"})
        EXPECT_EQ(propertiesOf(makeImage(folder, name, allTags)), allProperties) << name;
}

TEST_F(ImagePropertiesReader, AnImageWithoutMetadataHasNone) {
    for (const auto* name : {"a.jpg", "a.png", "a.heic"})
        EXPECT_EQ(propertiesOf(makeImage(folder, name)), ImageProperties{}) << name;
}

TEST_F(ImagePropertiesReader, EachPropertyMayStandAlone) {
    EXPECT_EQ(propertiesOf(makeImage(folder, "a.jpg", {allTags[2]})).dateTime, allProperties.dateTime);
    EXPECT_EQ(propertiesOf(makeImage(folder, "b.jpg", {allTags[1]})).dateTimeDigitized,
              allProperties.dateTimeDigitized);
    EXPECT_EQ(propertiesOf(makeImage(folder, "c.jpg", {allTags[4]})).make, std::nullopt);
}

// IFD0 of the RAW formats that grew from TIFF/EP may hold it as well.
TEST_F(ImagePropertiesReader, TheOriginalDateMayStandInTheMainDirectory) {
    const auto path = makeImage(folder, "a.tif", {"IFD0:DateTimeOriginal=2023:08:14 14:30:21"});
    EXPECT_EQ(propertiesOf(path).dateTimeOriginal, "2023:08:14 14:30:21");
}

TEST_F(ImagePropertiesReader, PaddingIsNoPartOfAText) {
    const auto path = makeImage(folder, "a.jpg", {"EXIF:Make=NIKON   ", "EXIF:Model=E775 \t"});
    EXPECT_EQ(propertiesOf(path).make, "NIKON");
    EXPECT_EQ(propertiesOf(path).model, "E775");
}

TEST_F(ImagePropertiesReader, ContentCountsAndNotTheName) {
    const auto path = makeImage(folder, "a.png", allTags);
    EXPECT_EQ(readImageProperties(bytesOf(contentOf(path))), allProperties);
}

TEST_F(ImagePropertiesReader, ASidecarIsNoImage) {
    const std::string sidecar = R"(<?xpacket begin=""?><x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF
        xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"><rdf:Description
        xmlns:tiff="http://ns.adobe.com/tiff/1.0/" tiff:Make="Canon" tiff:Model="EOS"/></rdf:RDF></x:xmpmeta>)";
    EXPECT_EQ(readImageProperties(bytesOf(sidecar)), ImageProperties{});
}

// The first library knows only some brands of HEIC.
TEST_F(ImagePropertiesReader, WhatOneLibraryCannotReadAnotherDoes) {
    auto content = contentOf(makeImage(folder, "a.heic", allTags));
    constexpr std::size_t kBrand = 8;
    ASSERT_EQ(content.substr(kBrand, 4), "heic");
    content.replace(kBrand, 4, "heim");
    EXPECT_EQ(readImageProperties(bytesOf(content)), allProperties);
}

TEST_F(ImagePropertiesReader, AnExifBlockStartsAtItsByteOrder) {
    const auto content = contentOf(makeImage(folder, "a.heic", allTags));
    ASSERT_TRUE(isHeif(bytesOf(content)));
    const auto block = exifBlockOfHeif(bytesOf(content));
    ASSERT_GT(block.size(), 4U);
    EXPECT_TRUE(std::memcmp(block.data(), "II*\0", 4) == 0 || std::memcmp(block.data(), "MM\0*", 4) == 0);
    EXPECT_TRUE(exifBlockOfHeif(bytesOf(contentOf(makeImage(folder, "b.heic")))).empty());
}

TEST_F(ImagePropertiesReader, OnlyAHeifBeginsAsOne) {
    for (const std::string content : {"", "short", "\xff\xd8\xff\xe0 no HEIF at all", "0000ftypmp42more of it"})
        EXPECT_FALSE(isHeif(bytesOf(content))) << content;
}

// A card pulled too early leaves the front of its last photo.
TEST_F(ImagePropertiesReader, WhatStandsBeforeABreakIsRead) {
    const auto content = contentOf(makeImage(folder, "a.jpg", allTags));
    EXPECT_EQ(readImageProperties(bytesOf(content).first(content.size() - 20)), allProperties);
}

TEST_F(ImagePropertiesReader, NoCutHarms) {
    for (const auto* name : {"a.jpg", "a.tif", "a.png", "a.webp", "a.heic"}) {
        SCOPED_TRACE(name);
        const auto content = contentOf(makeImage(folder, name, allTags));
        const auto step = std::max<std::size_t>(1, content.size() / 200);
        for (std::size_t length = 0; length < content.size(); length += step) {
            const auto cut = readImageProperties(bytesOf(content).first(length));
            EXPECT_EQ(cut.dateTimeOriginal.value_or("2023:08:14 14:30:21"), "2023:08:14 14:30:21") << length;
        }
    }
}

TEST_F(ImagePropertiesReader, WhatIsNoImageHasNoProperties) {
    for (const std::string content : {"", "x", "no image", "\xff\xd8", "\xff\xd8\xff\xe1", "II*", "MM\0*\0\0\0\x08",
                                      "\x89PNG\r\n\x1a\n", "RIFF\xff\xff\xff\xffWEBP"})
        EXPECT_EQ(readImageProperties(bytesOf(content)), ImageProperties{}) << content;
}

}  // namespace
}  // namespace vellomar
