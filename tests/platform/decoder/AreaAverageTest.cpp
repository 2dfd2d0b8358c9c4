#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "platform/decoder/worker/pixels/AreaAverage.h"

namespace vellomar {
namespace {

constexpr auto kWidth = GreyRaster::kWidth;
constexpr auto kHeight = GreyRaster::kHeight;

struct Picture {
    std::size_t width;
    std::size_t height;
    std::vector<std::uint8_t> pixels;
};

GreyRaster reduce(const Picture& picture) {
    auto average = AreaAverage::ofSize(picture.width, picture.height).value();
    for (std::size_t row = 0; row < picture.height; ++row)
        average.addRow(std::span(picture.pixels).subspan(row * picture.width, picture.width));
    return average.raster();
}

Picture noise(std::size_t width, std::size_t height) {
    std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
    std::uniform_int_distribution<unsigned> value(0, 255);
    Picture picture{width, height, std::vector<std::uint8_t>(width * height)};
    std::ranges::generate(picture.pixels, [&] { return static_cast<std::uint8_t>(value(random)); });
    return picture;
}

double shareOf(std::size_t pixel, std::size_t cell, std::size_t pixels, std::size_t cells) {
    const double scale = static_cast<double>(pixels) / static_cast<double>(cells);
    const auto start = std::max(static_cast<double>(pixel), static_cast<double>(cell) * scale);
    const auto end = std::min(static_cast<double>(pixel + 1), static_cast<double>(cell + 1) * scale);
    return std::max(0.0, end - start) / scale;
}

// The mean by its definition, pixel by pixel.
double meanUnder(const Picture& picture, std::size_t row, std::size_t column) {
    double mean = 0;
    for (std::size_t y = 0; y < picture.height; ++y)
        for (std::size_t x = 0; x < picture.width; ++x)
            mean += shareOf(y, row, picture.height, kHeight) * shareOf(x, column, picture.width, kWidth) *
                    picture.pixels[y * picture.width + x];
    return mean;
}

TEST(AreaAverage, EachPixelIsTheMeanOfWhatLiesOnItByArea) {
    for (const auto& [width, height] : std::initializer_list<std::pair<std::size_t, std::size_t>>{
             {9, 8}, {18, 16}, {10, 9}, {100, 75}, {64, 64}, {17, 200}, {1, 1}, {2, 3}, {8, 7}, {1, 50}, {50, 1}}) {
        const auto picture = noise(width, height);
        const auto raster = reduce(picture);
        for (std::size_t row = 0; row < kHeight; ++row)
            for (std::size_t column = 0; column < kWidth; ++column)
                EXPECT_NEAR(raster.at(row, column), meanUnder(picture, row, column), 0.501)
                    << fmt::format("{}x{} at {},{}", width, height, row, column);
    }
}

TEST(AreaAverage, APictureOfTheRastersSizeStaysAsItIs) {
    const auto picture = noise(kWidth, kHeight);
    EXPECT_TRUE(std::ranges::equal(reduce(picture).pixels, picture.pixels));
}

TEST(AreaAverage, HalvesAreRoundedUpwards) {
    Picture picture{2 * kWidth, kHeight, std::vector<std::uint8_t>(2 * kWidth * kHeight)};
    for (std::size_t i = 0; i < picture.pixels.size(); i += 2)
        picture.pixels[i] = 1;
    EXPECT_TRUE(std::ranges::all_of(reduce(picture).pixels, [](auto pixel) { return pixel == 1; }));
}

TEST(AreaAverage, TheLargestPictureDoesNotOverflow) {
    constexpr std::uint64_t kLongest = 100'000;
    auto average = AreaAverage::ofSize(kLongest, kMostPixels / kLongest).value();
    const std::vector<std::uint8_t> white(kLongest, 255);
    for (std::uint64_t row = 0; row < kMostPixels / kLongest; ++row)
        average.addRow(white);
    EXPECT_TRUE(std::ranges::all_of(average.raster().pixels, [](auto pixel) { return pixel == 255; }));
}

TEST(AreaAverage, MissingRowsAreBlackAndRowsTooManyDoNotCount) {
    auto average = AreaAverage::ofSize(kWidth, kHeight).value();
    const std::vector<std::uint8_t> row(kWidth, 100);
    average.addRow(row);
    EXPECT_EQ(average.raster().at(0, 0), 100);
    EXPECT_EQ(average.raster().at(1, 0), 0);
    for (std::size_t i = 0; i < 2 * kHeight; ++i)
        average.addRow(row);
    EXPECT_TRUE(std::ranges::all_of(average.raster().pixels, [](auto pixel) { return pixel == 100; }));
}

TEST(AreaAverage, NoPictureIsEmptyOrLargerThanWeDecode) {
    EXPECT_TRUE(isDecodableSize(1, 1));
    EXPECT_TRUE(isDecodableSize(kMostPixels, 1));
    EXPECT_TRUE(isDecodableSize(25'000, 20'000));
    for (const auto& [width, height] : std::initializer_list<std::pair<std::uint64_t, std::uint64_t>>{
             {0, 1}, {1, 0}, {kMostPixels, 2}, {25'000, 20'001}, {1ULL << 33U, 1ULL << 31U}}) {
        EXPECT_FALSE(isDecodableSize(width, height)) << width << "x" << height;
        EXPECT_FALSE(AreaAverage::ofSize(width, height).has_value());
    }
}

}  // namespace
}  // namespace vellomar
