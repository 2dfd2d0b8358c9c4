#include <gtest/gtest.h>

#include "platform/decoder/DecoderRequest.h"
#include "platform/decoder/PixelMessages.h"

namespace vellomar {
namespace {

TEST(DecoderRequest, EachTravelsInAMessage) {
    using enum DecoderRequest;
    for (const auto request : {imageMetadata, videoMetadata, greyRaster, jpeg, cameraProperties}) {
        EXPECT_EQ(requestFromMessage(requestMessage(request)), request);
        EXPECT_EQ(thumbnailSizeFromMessage(requestMessage(request)), 0);
    }
}

TEST(DecoderRequest, AThumbnailIsAskedForWithItsSize) {
    for (const int size : {1, 255, 256, 512, 65'535}) {
        EXPECT_EQ(requestFromMessage(thumbnailRequestMessage(size)), DecoderRequest::thumbnail) << size;
        EXPECT_EQ(thumbnailSizeFromMessage(thumbnailRequestMessage(size)), size);
    }
    EXPECT_EQ(requestFromMessage(thumbnailRequestMessage(0)), std::nullopt);
}

TEST(DecoderRequest, OtherBytesAreNoRequest) {
    for (const auto& bytes :
         {MessageBytes{}, MessageBytes{'x'}, MessageBytes{'i', 'i'}, MessageBytes{'t'}, MessageBytes{'t', 1},
          MessageBytes{'t', 1, 1, 1}, MessageBytes{'i', 1, 1}, noValueAnswer()})
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
    EXPECT_NE(thumbnailAnswer(1, 1), noValueAnswer());
    EXPECT_NE(thumbnailAnswer(1, 1), pictureWrittenAnswer());
}

MessageBytes samplesFrom0(std::size_t count) {
    MessageBytes samples;
    for (std::size_t i = 0; i < count; ++i)
        samples.push_back(static_cast<std::uint8_t>(i));
    return samples;
}

TEST(PixelMessages, AThumbnailTravelsBesideItsAnswer) {
    const auto samples = samplesFrom0(18);
    const auto thumbnail = thumbnailFromAnswer(thumbnailAnswer(3, 2), std::as_bytes(std::span(samples)), 3);
    ASSERT_TRUE(thumbnail.has_value());
    EXPECT_EQ(thumbnail->width, 3);
    EXPECT_EQ(thumbnail->height, 2);
    EXPECT_EQ(thumbnail->at(0, 0), 0xff000102);
    EXPECT_EQ(thumbnail->at(0, 2), 0xff060708);
    EXPECT_EQ(thumbnail->at(1, 2), 0xff0f1011);
    const MessageBytes largest(std::size_t{3} * 512 * 512);
    EXPECT_TRUE(thumbnailFromAnswer(thumbnailAnswer(512, 512), std::as_bytes(std::span(largest)), 512).has_value());
}

TEST(PixelMessages, HostileAnswersAreNoThumbnail) {
    const auto samples = samplesFrom0(18);
    const auto bytes = std::as_bytes(std::span(samples));
    for (const auto& [width, height] : {std::pair(0, 0), std::pair(0, 2), std::pair(3, 0), std::pair(3, 3),
                                        std::pair(2, 2), std::pair(6, 1), std::pair(1, 6), std::pair(65'535, 65'535)})
        EXPECT_EQ(thumbnailFromAnswer(thumbnailAnswer(width, height), bytes, 5), std::nullopt)
            << width << " " << height;
    EXPECT_EQ(thumbnailFromAnswer(thumbnailAnswer(3, 2), {}, 3), std::nullopt);
    for (const auto& answer : {MessageBytes{}, MessageBytes{'#'}, MessageBytes{'#', 0, 3, 0}, noValueAnswer(),
                               MessageBytes{'#', 0, 3, 0, 2, 0}, MessageBytes{'*', 0, 3, 0, 2}})
        EXPECT_EQ(thumbnailFromAnswer(answer, bytes, 3), std::nullopt);
}

}  // namespace
}  // namespace vellomar
