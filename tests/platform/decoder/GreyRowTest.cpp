#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "platform/decoder/worker/pixels/GreyRow.h"

namespace vellomar {
namespace {

using Samples = std::vector<std::uint8_t>;

int greyOf(const Samples& samples, PixelLayout layout) {
    std::array<std::uint8_t, 1> grey{};
    makeGrey(std::span<const std::uint8_t>(samples), layout, grey);
    return grey[0];
}

TEST(GreyRow, ColoursWeighAsInLuma) {
    const std::vector<std::pair<Samples, int>> cases = {{{0, 0, 0}, 0},     {{255, 255, 255}, 255}, {{255, 0, 0}, 76},
                                                        {{0, 255, 0}, 150}, {{0, 0, 255}, 29},      {{10, 10, 10}, 10}};
    for (const auto& [samples, grey] : cases)
        EXPECT_EQ(greyOf(samples, PixelLayout::rgb), grey) << grey;
}

TEST(GreyRow, WhatIsTransparentIsBlack) {
    EXPECT_EQ(greyOf({200, 255}, PixelLayout::greyAlpha), 200);
    EXPECT_EQ(greyOf({200, 0}, PixelLayout::greyAlpha), 0);
    EXPECT_EQ(greyOf({200, 51}, PixelLayout::greyAlpha), 40);
    EXPECT_EQ(greyOf({255, 255, 255, 128}, PixelLayout::rgba), 128);
    EXPECT_EQ(greyOf({255, 0, 0, 255}, PixelLayout::rgba), 76);
}

TEST(GreyRow, InkDarkensPaper) {
    EXPECT_EQ(greyOf({0, 0, 0, 0}, PixelLayout::cmyk), 255);
    EXPECT_EQ(greyOf({0, 0, 0, 255}, PixelLayout::cmyk), 0);
    EXPECT_EQ(greyOf({255, 255, 255, 0}, PixelLayout::cmyk), 0);
    EXPECT_EQ(greyOf({0, 255, 255, 0}, PixelLayout::cmyk), 76);  // red
}

TEST(GreyRow, OfWideSamplesTheUpperHalfCounts) {
    const std::array<std::uint16_t, 3> samples{0x1234, 0x12ff, 0x1300};
    std::array<std::uint8_t, 3> grey{};
    makeGrey(std::span<const std::uint16_t>(samples), PixelLayout::grey, grey);
    EXPECT_EQ(grey, (std::array<std::uint8_t, 3>{0x12, 0x12, 0x13}));
}

TEST(GreyRow, PixelsFollowEachOtherWithoutPadding) {
    const Samples samples{255, 0, 0, 0, 255, 0, 0, 0, 255};
    std::array<std::uint8_t, 3> grey{};
    makeGrey(std::span<const std::uint8_t>(samples), PixelLayout::rgb, grey);
    EXPECT_EQ(grey, (std::array<std::uint8_t, 3>{76, 150, 29}));
}

TEST(GreyRow, ARowIsPutOverBlack) {
    std::array<std::uint8_t, 3> grey{100, 100, 100};
    const std::array<std::uint8_t, 3> alpha{255, 0, 128};
    blacken(grey, alpha);
    EXPECT_EQ(grey, (std::array<std::uint8_t, 3>{100, 0, 50}));
}

}  // namespace
}  // namespace vellomar
