#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/inspector/MapLinks.h"
#include "ui/inspector/RichMetadata.h"

namespace vellomar {
namespace {

TEST(RichMetadata, HasEveryEntryInItsWords) {
    CameraProperties properties;
    properties.cameraMake = "FUJIFILM";
    properties.cameraModel = "X100V";
    properties.lensModel = "23mm f/2";
    properties.lensMake = "Fuji";
    properties.width = 6240;
    properties.height = 4160;
    properties.focalLength = 22.6;
    properties.fNumber = 2.8;
    properties.exposureTime = 0.004;
    properties.isoSpeeds = {160, 200};
    properties.flash = 0;
    properties.brightness = 3.456;
    properties.whiteBalance = 0;
    properties.meteringMode = 5;
    properties.software = "Firmware 1.0";
    properties.artist = "Anna";
    properties.latitude = 38.722252;
    properties.latitudeRef = "N";
    properties.longitude = 9.139337;
    properties.longitudeRef = "W";
    properties.altitude = 12.4;
    EXPECT_EQ(richMetadata(properties), (QMap<QString, QString>{{"Camera Make", "FUJIFILM"},
                                                                {"Camera Model", "X100V"},
                                                                {"Lens", "23mm f/2"},
                                                                {"Lens Make", "Fuji"},
                                                                {"Dimensions", "6240 × 4160 px"},
                                                                {"Focal Length", "23 mm"},
                                                                {"Aperture", "f/2.8"},
                                                                {"Shutter", "1/250 s"},
                                                                {"ISO", "160, 200"},
                                                                {"Flash", "No flash"},
                                                                {"Brightness", "3.46 EV"},
                                                                {"White Balance", "Auto"},
                                                                {"Metering", "Pattern"},
                                                                {"Software", "Firmware 1.0"},
                                                                {"Artist", "Anna"},
                                                                {"GPS Latitude", "38.722252° N"},
                                                                {"GPS Longitude", "9.139337° W"},
                                                                {"GPS Latitude Raw", "38.722252"},
                                                                {"GPS Longitude Raw", "-9.139337"},
                                                                {"GPS Altitude", "12 m"}}));
}

TEST(RichMetadata, WhatIsNotThereIsNotTold) {
    EXPECT_TRUE(richMetadata({}).isEmpty());
    CameraProperties properties;
    properties.width = 6240;
    properties.latitude = 1;
    EXPECT_TRUE(richMetadata(properties).isEmpty()) << "half a pair is nothing";
}

QString entry(const char* key, const CameraProperties& properties) {
    return richMetadata(properties).value(key);
}

TEST(RichMetadata, ShutterTimes) {
    struct Case {
        double seconds;
        const char* text;
    };
    for (const auto& [seconds, text] :
         {Case{1, "1.0 s"}, Case{2.5, "2.5 s"}, Case{30, "30.0 s"}, Case{0.004, "1/250 s"}, Case{1.0 / 3, "1/3 s"},
          Case{0.6, "1/2 s"}, Case{0.000125, "1/8000 s"}, Case{0, ""}}) {
        CameraProperties properties;
        properties.exposureTime = seconds;
        EXPECT_EQ(entry("Shutter", properties), text) << seconds;
    }
}

TEST(RichMetadata, FlashWhiteBalanceAndMetering) {
    CameraProperties properties;
    properties.flash = 16;
    properties.whiteBalance = 1;
    EXPECT_EQ(entry("Flash", properties), "Flash fired") << "anything but 0";
    EXPECT_EQ(entry("White Balance", properties), "Manual");
    const std::vector<std::pair<int, const char*>> modes = {
        {0, "Unknown (0)"},     {1, "Average"},      {2, "Center-weighted"}, {3, "Spot"},
        {4, "Multi-spot"},      {5, "Pattern"},      {6, "Partial"},         {7, "Unknown (7)"},
        {255, "Unknown (255)"}, {-1, "Unknown (-1)"}};
    for (const auto& [mode, text] : modes) {
        properties.meteringMode = mode;
        EXPECT_EQ(entry("Metering", properties), text) << mode;
    }
}

TEST(RichMetadata, SouthAndWestAreNegative) {
    CameraProperties properties;
    properties.latitude = 54.8;
    properties.latitudeRef = "S";
    properties.longitude = 68.3;
    properties.longitudeRef = "E";
    EXPECT_EQ(entry("GPS Latitude", properties), "54.800000° S");
    EXPECT_EQ(entry("GPS Latitude Raw", properties), "-54.8");
    EXPECT_EQ(entry("GPS Longitude Raw", properties), "68.3");
}

TEST(MapLinks, LeadToThePlace) {
    const auto links = mapLinks({{"GPS Latitude Raw", "-54.8"}, {"GPS Longitude Raw", "68.3"}});
    EXPECT_EQ(links,
              (std::vector<std::string>{"maps://?ll=-54.8,68.3&q=Photo+Location", "geo:-54.8,68.3",
                                        "https://www.openstreetmap.org/?mlat=-54.8&mlon=68.3#map=15/-54.8/68.3"}));
}

TEST(MapLinks, ThereAreNoneWithoutTwoNumbers) {
    EXPECT_TRUE(mapLinks({}).empty());
    EXPECT_TRUE(mapLinks({{"GPS Latitude Raw", "1"}}).empty());
    EXPECT_TRUE(mapLinks({{"GPS Latitude Raw", "1"}, {"GPS Longitude Raw", "east"}}).empty());
}

}  // namespace
}  // namespace vellomar
