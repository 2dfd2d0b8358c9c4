#include <gtest/gtest.h>

#include "platform/decoder/DecoderRequest.h"
#include "platform/decoder/PixelMessages.h"

namespace vellomar {
namespace {

TEST(DecoderRequest, EachTravelsInAMessage) {
    using enum DecoderRequest;
    for (const auto request : {imageMetadata, videoMetadata, greyRaster, jpeg})
        EXPECT_EQ(requestFromMessage(requestMessage(request)), request);
}

TEST(DecoderRequest, OtherBytesAreNoRequest) {
    for (const auto& bytes : {MessageBytes{}, MessageBytes{'x'}, MessageBytes{'i', 'i'}, noValueAnswer()})
        EXPECT_EQ(requestFromMessage(bytes), std::nullopt);
}

TEST(PixelMessages, ARasterTravelsInAnAnswer) {
    GreyRaster raster;
    for (std::size_t i = 0; i < raster.pixels.size(); ++i)
        raster.pixels[i] = static_cast<std::uint8_t>(3 * i);
    EXPECT_EQ(rasterFromAnswer(rasterAnswer(raster)), raster);
}

TEST(PixelMessages, OtherBytesAreNoRaster) {
    for (const auto& bytes : {MessageBytes{}, MessageBytes(71), MessageBytes(73), noValueAnswer()})
        EXPECT_EQ(rasterFromAnswer(bytes), std::nullopt);
}

TEST(PixelMessages, NoAnswerPassesForAnother) {
    EXPECT_NE(pictureWrittenAnswer(), noValueAnswer());
    EXPECT_NE(rasterAnswer({}), noValueAnswer());
}

}  // namespace
}  // namespace vellomar
