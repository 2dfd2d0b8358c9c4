#include <gtest/gtest.h>

#include "duplicates/PerceptualHash.h"
#include "platform/LinuxFileSystem.h"
#include "support/DecoderProgram.h"
#include "support/MediaFiles.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

TEST(PerceptualHash, ABitIsSetWhereAPixelIsBrighterThanItsRightNeighbour) {
    for (std::size_t row = 0; row < GreyRaster::kHeight; ++row)
        for (std::size_t column = 0; column + 1 < GreyRaster::kWidth; ++column) {
            GreyRaster raster;
            for (std::size_t i = 0; i < GreyRaster::kWidth; ++i)
                raster.pixels[row * GreyRaster::kWidth + i] = i <= column ? 8 : 7;
            EXPECT_EQ(differenceHash(raster), std::uint64_t{1} << (row * 8 + column));
        }
}

TEST(PerceptualHash, EqualOrRisingBrightnessSetsNoBit) {
    GreyRaster raster;
    EXPECT_EQ(differenceHash(raster), 0U);
    raster.pixels.fill(255);
    EXPECT_EQ(differenceHash(raster), 0U);
    for (std::size_t i = 0; i < raster.pixels.size(); ++i)
        raster.pixels[i] = static_cast<std::uint8_t>(i % GreyRaster::kWidth);
    EXPECT_EQ(differenceHash(raster), 0U);
}

TEST(PerceptualHash, FallingBrightnessSetsEveryBit) {
    GreyRaster raster;
    for (std::size_t i = 0; i < raster.pixels.size(); ++i)
        raster.pixels[i] = static_cast<std::uint8_t>(100 - i % GreyRaster::kWidth);
    EXPECT_EQ(differenceHash(raster), ~std::uint64_t{0});
}

class PerceptualHashOfFile : public ::testing::Test {
protected:
    std::optional<std::uint64_t> hashOf(const std::string& path) { return perceptualHash(disk, decoder, path); }

    testing::TemporaryFolder folder;
    LinuxFileSystem disk;
    PixelDecoder decoder{testing::pixelDecoderProgram()};
};

TEST_F(PerceptualHashOfFile, AGradientToTheRight) {
    EXPECT_EQ(
        hashOf(testing::makePicture(folder, "falls.png", {"-size", "8x90", "gradient:white-black", "-rotate", "270"})),
        ~std::uint64_t{0});
    EXPECT_EQ(
        hashOf(testing::makePicture(folder, "rises.png", {"-size", "8x90", "gradient:white-black", "-rotate", "90"})),
        0U);
}

TEST_F(PerceptualHashOfFile, APictureOfOneColourOrOnePixelHashesToZero) {
    EXPECT_EQ(hashOf(testing::makePicture(folder, "white.png", {"-size", "300x200", "xc:white"})), 0U);
    EXPECT_EQ(hashOf(testing::makePicture(folder, "tiny.png", {"-size", "1x1", "xc:red"})), 0U);
}

TEST_F(PerceptualHashOfFile, WhatCannotBeDecodedHasNone) {
    EXPECT_EQ(hashOf(folder / "missing.jpg"), std::nullopt);
    EXPECT_EQ(hashOf(folder.path()), std::nullopt);
    EXPECT_EQ(hashOf(folder.write("empty.jpg", "")), std::nullopt);
    EXPECT_EQ(hashOf(folder.write("text.jpg", "no picture at all")), std::nullopt);
}

}  // namespace
}  // namespace vellomar
