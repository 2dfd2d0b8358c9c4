#include <gtest/gtest.h>

#include "platform/decoder/MetadataMessages.h"

namespace vellomar {
namespace {

MediaMetadata everything() {
    return {.image = {.dateTimeOriginal = "2023:08:14 14:30:21",
                      .dateTimeDigitized = "2023:08:14 14:30:22",
                      .dateTime = "",
                      .make = "\xff\xfe no UTF-8",
                      .model = std::string("a NUL \0 inside", 14)},
            .video = {.creationDate = "2021-03-04T05:06:07+0000",
                      .formats = {{"mov,mp4", {"one", "", "three"}}, {"empty", {}}}}};
}

TEST(MetadataMessages, AnAnswerCarriesEveryFieldAndEveryByte) {
    EXPECT_EQ(metadataFromAnswer(metadataAnswer(everything())), everything());
    EXPECT_EQ(metadataFromAnswer(metadataAnswer({})), MediaMetadata{});
}

TEST(MetadataMessages, EachFieldHasItsOwnPlace) {
    MediaMetadata metadata;
    for (auto* field : {&metadata.image.dateTimeOriginal, &metadata.image.dateTimeDigitized, &metadata.image.dateTime,
                        &metadata.image.make, &metadata.image.model, &metadata.video.creationDate}) {
        *field = "here";
        EXPECT_EQ(metadataFromAnswer(metadataAnswer(metadata)), metadata);
        field->reset();
    }
}

TEST(MetadataMessages, LongTextsAreCut) {
    const MediaMetadata metadata{.image = {.dateTimeOriginal = std::string(100'000, 'a'),
                                           .dateTimeDigitized = {},
                                           .dateTime = {},
                                           .make = {},
                                           .model = {}},
                                 .video = {}};
    const auto received = metadataFromAnswer(metadataAnswer(metadata));
    ASSERT_TRUE(received.has_value());
    EXPECT_EQ(received->image.dateTimeOriginal, std::string(1024, 'a'));
}

TEST(MetadataMessages, HoweverMuchAVideoHoldsAnAnswerIsShortEnough) {
    MediaMetadata metadata = everything();
    for (auto* field : {&metadata.image.dateTimeOriginal, &metadata.image.dateTimeDigitized, &metadata.image.dateTime,
                        &metadata.image.make, &metadata.image.model, &metadata.video.creationDate})
        *field = std::string(100'000, 'a');
    metadata.video.formats = {{std::string(5000, 'i'), std::vector<std::string>(40, std::string(2000, 'b'))},
                              {"many", std::vector<std::string>(50'000, "c")}};
    const auto answer = metadataAnswer(metadata);
    EXPECT_LE(answer.size(), kMostBytesOfMessage);
    const auto received = metadataFromAnswer(answer);
    ASSERT_TRUE(received.has_value());
    ASSERT_EQ(received->video.formats.size(), 2U);
    EXPECT_EQ(received->video.formats[0].texts.size(), 40U);
    EXPECT_GT(received->video.formats[1].texts.size(), 100U);
}

TEST(MetadataMessages, NoTextFollowsOneThatHadNoRoom) {
    MediaMetadata metadata;
    metadata.video.formats = {{"long", std::vector<std::string>(60, std::string(1024, 'a'))}, {"short", {"b"}}};
    const auto received = metadataFromAnswer(metadataAnswer(metadata));
    ASSERT_TRUE(received.has_value());
    ASSERT_EQ(received->video.formats.size(), 1U);
    EXPECT_EQ(received->video.formats[0].identifier, "long");
    EXPECT_EQ(received->video.formats[0].texts.size(), 47U);
}

// What only a decoder that a file has taken over would send.
TEST(MetadataMessages, HostileAnswersHarmNothing) {
    const auto withTail = [](MessageBytes head, std::uint8_t repeated) {
        head.resize(kMostBytesOfMessage, repeated);
        return head;
    };
    const MessageBytes endlessArrays = withTail({}, 0x81);
    const MessageBytes openArrays = withTail({}, 0x9f);
    const MessageBytes bytesInPieces = withTail({0x82, 0x85}, 0x5f);
    const MessageBytes textsInPieces = withTail({0x82, 0x85}, 0x7f);
    const MessageBytes mapsInMaps = withTail({0x82, 0x85}, 0xa1);
    for (const auto& bytes : {endlessArrays, openArrays, bytesInPieces, textsInPieces, mapsInMaps})
        EXPECT_EQ(metadataFromAnswer(bytes), std::nullopt) << int{bytes.back()};
    for (const auto type : MessageBytes{0x9b, 0x5b, 0x9a, 0x5a, 0xbb}) {
        EXPECT_EQ(metadataFromAnswer(withTail({type, 0x0f}, 0xff)), std::nullopt) << int{type};
        EXPECT_EQ(metadataFromAnswer(withTail({0x82, 0x85, type, 0x0f}, 0xff)), std::nullopt) << int{type};
    }
}

TEST(MetadataMessages, LengthsMayBeWrittenInAnyWidth) {
    const MessageBytes answer = {0x98, 2,   0x99, 0, 5,    0x41, 'a', 0x58, 1,    'b',  0x59, 0,
                                 1,    'c', 0x5a, 0, 0,    0,    1,   'd',  0xf6, 0x82, 0xf6, 0x9a,
                                 0,    0,   0,    1, 0x82, 0x41, 'f', 0x81, 0x41, 't'};
    const auto metadata = metadataFromAnswer(answer);
    ASSERT_TRUE(metadata.has_value());
    EXPECT_EQ(metadata->image.dateTimeOriginal, "a");
    EXPECT_EQ(metadata->image.dateTimeDigitized, "b");
    EXPECT_EQ(metadata->image.dateTime, "c");
    EXPECT_EQ(metadata->image.make, "d");
    EXPECT_EQ(metadata->image.model, std::nullopt);
    EXPECT_EQ(metadata->video.formats, (std::vector<VideoMetadataFormat>{{"f", {"t"}}}));
}

TEST(MetadataMessages, NothingMayStandBehindAnAnswer) {
    auto bytes = metadataAnswer(everything());
    bytes.push_back(0xf6);
    EXPECT_EQ(metadataFromAnswer(bytes), std::nullopt);
}

TEST(MetadataMessages, WhatIsNoAnswerIsNone) {
    for (const auto& bytes : {MessageBytes{}, MessageBytes{0xff}, MessageBytes{0x80}, MessageBytes{0x82, 0xf6, 0xf6},
                              MessageBytes{0x82, 0x85, 1, 2, 3, 4, 5, 0x82, 0xf6, 0x80}})
        EXPECT_EQ(metadataFromAnswer(bytes), std::nullopt);
}

TEST(MetadataMessages, NoPartOfAnAnswerIsOne) {
    const auto whole = metadataAnswer(everything());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(metadataFromAnswer({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}),
                  std::nullopt)
            << length;
}

TEST(MetadataMessages, AnAnswerWithAnyByteChangedHarmsNothing) {
    const auto whole = metadataAnswer(everything());
    int understood = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const auto value : MessageBytes{0x00, 0x5b, 0x7f, 0x9f, 0xbf, 0xdf, 0xff}) {
            auto changed = whole;
            changed[at] = value;
            understood += metadataFromAnswer(changed).has_value() ? 1 : 0;
        }
    EXPECT_GT(understood, 0);  // a changed letter of a text is still a text
}

}  // namespace
}  // namespace vellomar
