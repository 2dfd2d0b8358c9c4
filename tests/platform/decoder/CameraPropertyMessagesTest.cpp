#include <limits>

#include <gtest/gtest.h>

#include "platform/decoder/CameraPropertyMessages.h"
#include "platform/decoder/DecoderRequest.h"
#include "platform/decoder/MetadataMessages.h"

namespace vellomar {
namespace {

CameraProperties everything() {
    CameraProperties all;
    all.cameraMake = "Canon";
    all.cameraModel = "Canon EOS R5";
    all.software = "Firmware 1.2";
    all.artist = "José";
    all.lensMake = "Sigma";
    all.lensModel = "35mm F1.4";
    all.width = 8192;
    all.height = 5464;
    all.focalLength = 35.5;
    all.fNumber = 1.4;
    all.exposureTime = 1.0 / 3;
    all.isoSpeeds = {100, 65'535, 0, std::numeric_limits<int>::max()};
    all.flash = 16;
    all.brightness = -1.25;
    all.whiteBalance = 0;
    all.meteringMode = 3;
    all.latitude = 33.856722;
    all.latitudeRef = "S";
    all.longitude = 151.215028;
    all.longitudeRef = "E";
    all.altitude = 0.0;
    return all;
}

TEST(CameraPropertyMessages, AnAnswerCarriesEveryProperty) {
    EXPECT_EQ(cameraPropertiesFromAnswer(cameraPropertiesAnswer(everything())), everything());
    EXPECT_EQ(cameraPropertiesFromAnswer(cameraPropertiesAnswer({})), CameraProperties{});
}

TEST(CameraPropertyMessages, EachPropertyHasItsOwnPlace) {
    const auto expectArrival = [](auto field) {
        const auto all = everything();
        CameraProperties one;
        one.*field = all.*field;
        EXPECT_EQ(cameraPropertiesFromAnswer(cameraPropertiesAnswer(one)), one);
        auto others = all;
        others.*field = {};
        EXPECT_EQ(cameraPropertiesFromAnswer(cameraPropertiesAnswer(others)), others);
    };
    using All = CameraProperties;
    for (const auto field : {&All::cameraMake, &All::cameraModel, &All::software, &All::artist, &All::lensMake,
                             &All::lensModel, &All::latitudeRef, &All::longitudeRef})
        expectArrival(field);
    for (const auto field : {&All::width, &All::height, &All::flash, &All::whiteBalance, &All::meteringMode})
        expectArrival(field);
    for (const auto field : {&All::focalLength, &All::fNumber, &All::exposureTime, &All::brightness, &All::latitude,
                             &All::longitude, &All::altitude})
        expectArrival(field);
    expectArrival(&All::isoSpeeds);
}

TEST(CameraPropertyMessages, FractionsArriveToTheLastDigit) {
    for (const double number : {0.0, -0.5, 1.0 / 3, 1e300, 5e-324, 3.4e38, 123'456'789.0}) {
        CameraProperties properties;
        properties.brightness = number;
        EXPECT_EQ(cameraPropertiesFromAnswer(cameraPropertiesAnswer(properties)), properties) << number;
    }
}

TEST(CameraPropertyMessages, LongTextsAreCutBetweenCharacters) {
    CameraProperties properties;
    properties.artist = "x" + std::string(2000, 'a');
    properties.software = "x";
    for (int i = 0; i < 1000; ++i)
        *properties.software += "é";
    properties.isoSpeeds = std::vector<int>(1000, 100);
    const auto received = cameraPropertiesFromAnswer(cameraPropertiesAnswer(properties));
    ASSERT_TRUE(received.has_value());
    EXPECT_EQ(received->artist, "x" + std::string(1023, 'a'));
    EXPECT_EQ(received->software, properties.software->substr(0, 1023));
    EXPECT_EQ(received->isoSpeeds, std::vector<int>(64, 100));
}

TEST(CameraPropertyMessages, HoweverMuchThereIsAnAnswerIsShortEnough) {
    auto properties = everything();
    for (auto* text : {&properties.cameraMake, &properties.cameraModel, &properties.software, &properties.artist,
                       &properties.lensMake, &properties.lensModel, &properties.latitudeRef, &properties.longitudeRef})
        *text = std::string(100'000, 'a');
    properties.isoSpeeds = std::vector<int>(100'000, std::numeric_limits<int>::max());
    EXPECT_LE(cameraPropertiesAnswer(properties).size(), kMostBytesOfMessage);
}

// An answer of nulls with something else in one place; the first six are texts, then come two whole numbers, three
// fractions and the list.
MessageBytes answerWith(std::size_t place, const MessageBytes& value) {
    constexpr std::size_t kFields = 21;
    constexpr std::size_t kList = 11;
    MessageBytes bytes{0x80 | kFields};
    for (std::size_t i = 0; i < kFields; ++i) {
        if (i == place)
            bytes.insert(bytes.end(), value.begin(), value.end());
        else
            bytes.push_back(i == kList ? 0x80 : 0xf6);
    }
    return bytes;
}

TEST(CameraPropertyMessages, LengthsMayBeWrittenInAnyWidth) {
    for (const auto& value :
         {MessageBytes{0x07}, MessageBytes{0x18, 7}, MessageBytes{0x19, 0, 7}, MessageBytes{0x1a, 0, 0, 0, 7}})
        EXPECT_EQ(cameraPropertiesFromAnswer(answerWith(6, value)).value_or(CameraProperties{}).width, 7);
    for (const auto& value : {MessageBytes{0xfa, 0x3f, 0xc0, 0, 0}, MessageBytes{0xfb, 0x3f, 0xf8, 0, 0, 0, 0, 0, 0}})
        EXPECT_EQ(cameraPropertiesFromAnswer(answerWith(8, value)).value_or(CameraProperties{}).focalLength, 1.5);
}

TEST(CameraPropertyMessages, HostileValuesAreNone) {
    ASSERT_EQ(cameraPropertiesFromAnswer(answerWith(0, {0xf6})), CameraProperties{});
    MessageBytes longText{0x59, 0x04, 0x01};
    longText.resize(3 + 1025, 'a');
    MessageBytes longList{0x98, 65};
    longList.resize(2 + 65, 1);
    const std::vector<std::pair<std::size_t, MessageBytes>> cases = {
        {0, {0x41, 0xff}},      // no UTF-8
        {0, {0x62, 'a', 'b'}},  // of another type, as are the next
        {0, {0x01}},
        {0, {0x81, 0x41, 'a'}},
        {0, longText},
        {6, {0x41, 'a'}},
        {6, {0x20}},                 // below zero
        {6, {0x1a, 0x80, 0, 0, 0}},  // too large
        {6, {0x1b, 0, 0, 0, 0, 0, 0, 0, 1}},
        {6, {0xfa, 0x3f, 0xc0, 0, 0}},
        {8, {0x01}},
        {8, {0xf9, 0x3c, 0x00}},
        {8, {0xfa, 0x7f, 0x80, 0, 0}},              // without end
        {8, {0xfb, 0x7f, 0xf8, 0, 0, 0, 0, 0, 0}},  // no number
        {8, {0xfb, 0xff, 0xf0, 0, 0, 0, 0, 0, 0}},
        {11, {0xf6}},
        {11, {0x81, 0x41, 'a'}},
        {11, {0x9a, 0x7f, 0xff, 0xff, 0xff}},
        {11, {0x9f, 0xff}},
        {11, longList},
    };
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(cameraPropertiesFromAnswer(answerWith(cases[i].first, cases[i].second)), std::nullopt) << i;
}

TEST(CameraPropertyMessages, WhatIsNoAnswerIsNone) {
    for (const auto& bytes : {MessageBytes{}, MessageBytes{0xff}, MessageBytes{0x80}, MessageBytes{0x95},
                              MessageBytes(kMostBytesOfMessage, 0x81), MessageBytes(kMostBytesOfMessage, 0x9f),
                              metadataAnswer({}), noValueAnswer()})
        EXPECT_EQ(cameraPropertiesFromAnswer(bytes), std::nullopt);
    EXPECT_NE(cameraPropertiesAnswer({}), noValueAnswer());
}

TEST(CameraPropertyMessages, NoPartOfAnAnswerAndNothingBehindItIsOne) {
    auto whole = cameraPropertiesAnswer(everything());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(cameraPropertiesFromAnswer({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}),
                  std::nullopt)
            << length;
    whole.push_back(0xf6);
    EXPECT_EQ(cameraPropertiesFromAnswer(whole), std::nullopt);
}

TEST(CameraPropertyMessages, AnAnswerWithAnyByteChangedHarmsNothing) {
    const auto whole = cameraPropertiesAnswer(everything());
    int understood = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const auto value : MessageBytes{0x00, 0x5b, 0x7f, 0x9f, 0xbf, 0xdf, 0xff}) {
            auto changed = whole;
            changed[at] = value;
            understood += cameraPropertiesFromAnswer(changed).has_value() ? 1 : 0;
        }
    EXPECT_GT(understood, 0);  // a changed letter of a text is still a text
}

}  // namespace
}  // namespace vellomar
