#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dates/CameraModel.h"
#include "dates/FakeMetadataReader.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kPath = "/card/a.jpg";

Options onNetwork() {
    Options options;
    options.storageIsNetwork = true;
    return options;
}

TEST(CameraModel, WhatExifToolToldComesFirst) {
    testing::FakeMetadataReader reader;
    reader.cameras[kPath] = "SONY ILCE-7M3";
    EXPECT_EQ(readCameraModel({{kPath, "Canon EOS R5"}}, kPath, {}, &reader), "Canon EOS R5");
    EXPECT_THAT(reader.calls, IsEmpty());
}

TEST(CameraModel, OtherwiseTheFileIsAsked) {
    testing::FakeMetadataReader reader;
    reader.cameras[kPath] = "SONY ILCE-7M3";
    EXPECT_EQ(readCameraModel({{"/card/b.jpg", "Canon EOS R5"}}, kPath, {}, &reader), "SONY ILCE-7M3");
    EXPECT_THAT(reader.calls, ElementsAre("camera " + kPath));
}

TEST(CameraModel, OnNetworkStorageTheFileIsNotOpened) {
    testing::FakeMetadataReader reader;
    reader.cameras[kPath] = "SONY ILCE-7M3";
    EXPECT_EQ(readCameraModel({}, kPath, onNetwork(), &reader), "—");
    EXPECT_EQ(readCameraModel({{kPath, "Canon EOS R5"}}, kPath, onNetwork(), &reader), "Canon EOS R5");
    EXPECT_THAT(reader.calls, IsEmpty());
}

TEST(CameraModel, AnUnknownCameraIsADash) {
    testing::FakeMetadataReader reader;
    EXPECT_EQ(readCameraModel({}, kPath, {}, &reader), "—");
    EXPECT_EQ(readCameraModel({}, kPath, {}, nullptr), "—");
}

}  // namespace
}  // namespace vellomar
