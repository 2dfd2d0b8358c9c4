#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/DecoderProgram.h"
#include "support/TemporaryFolder.h"
#include "ui/QtPrinters.h"
#include "ui/inspector/DecodedFileFacts.h"

namespace vellomar {
namespace {

class DecodedFileFactsTest : public ::testing::Test {
protected:
    // A picture with what ExifTool writes into it.
    [[nodiscard]] std::string makePicture(const std::string& arguments) {
        const auto path = folder / "picture.jpg";
        const auto command = "convert -size 8x6 xc:red '" + path + "' && exiftool -q -overwrite_original -n " +
                             arguments + " '" + path + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        return path;
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    DecodedFileFacts facts{fileSystem, testing::decoderProgram()};
};

TEST_F(DecodedFileFactsTest, TellsTheSizeTheCameraAndThePlace) {
    const auto path =
        makePicture("-Make=FUJIFILM -GPSLatitude=38.7223 -GPSLatitudeRef=N -GPSLongitude=9.1393 -GPSLongitudeRef=W");
    const auto found = facts.read(path);
    EXPECT_EQ(found.size, static_cast<std::int64_t>(testing::contentOf(path).size()));
    EXPECT_EQ(found.metadata.value("Camera Make"), "FUJIFILM");
    EXPECT_EQ(found.metadata.value("Dimensions"), "8 × 6 px");
    EXPECT_EQ(found.metadata.value("GPS Latitude"), "38.722300° N");
    EXPECT_TRUE(found.location.endsWith("Lisbon, Portugal")) << found.location.toStdString();
    EXPECT_EQ(found.metadata.value("Location"), found.location);
}

TEST_F(DecodedFileFactsTest, WithoutCoordinatesThereIsNoPlace) {
    const auto found = facts.read(makePicture("-Make=FUJIFILM"));
    EXPECT_EQ(found.location, "No location found");
    EXPECT_FALSE(found.metadata.contains("Location"));
}

TEST_F(DecodedFileFactsTest, CoordinatesThatAreNoPlaceStillShow) {
    struct Case {
        const char* arguments;
        const char* location;
    };
    for (const auto& [arguments, location] :
         {Case{"-GPSLatitude=95 -GPSLatitudeRef=N -GPSLongitude=9 -GPSLongitudeRef=W", "Could not resolve location"},
          Case{"-GPSLatitude=38 -GPSLatitudeRef=N", "Could not resolve location"},
          Case{"-GPSLatitude=0 -GPSLatitudeRef=N -GPSLongitude=30 -GPSLongitudeRef=W", "Unknown location"}}) {
        const auto found = facts.read(makePicture(arguments));
        EXPECT_TRUE(found.metadata.contains("GPS Latitude")) << arguments;
        EXPECT_EQ(found.location, location) << arguments;
    }
}

TEST_F(DecodedFileFactsTest, WhatCannotBeReadTellsNothing) {
    const auto gone = facts.read(folder / "gone.jpg");
    EXPECT_FALSE(gone.size);
    EXPECT_TRUE(gone.metadata.isEmpty());
    EXPECT_EQ(gone.location, "No location found");
    const auto garbage = facts.read(folder.write("garbage.jpg", "no picture"));
    EXPECT_EQ(garbage.size, 10);
    EXPECT_TRUE(garbage.metadata.isEmpty());
    const auto folderItself = facts.read(folder.path());
    EXPECT_TRUE(folderItself.metadata.isEmpty());
}

}  // namespace
}  // namespace vellomar
