#include <gtest/gtest.h>

#include "dates/CameraText.h"

namespace vellomar::ExifUtils {
namespace {

TEST(CameraText, NamesTheMakerOnce) {
    struct Case {
        std::optional<std::string> make;
        std::string model;
        std::string text;
    };
    const Case cases[] = {
        {"Canon", "Canon EOS R5", "Canon EOS R5"},
        {"SONY", "ILCE-7M3", "SONY ILCE-7M3"},
        {"Canon", "CANON EOS R5", "CANON EOS R5"},
        {"NIKON CORPORATION", "NIKON Z 6", "NIKON CORPORATION NIKON Z 6"},
        {"SONY", "My SONY", "SONY My SONY"},
        {"Leica", "Leica", "Leica"},
        {"Leica Camera AG", "Leica", "Leica Camera AG Leica"},
        {"ÉCLAIR", "éclair 16", "éclair 16"},
        {"ФЭД", "фэд 5", "фэд 5"},
        {"É", "E 1", "É E 1"},
        {"", "Pixel 7", "Pixel 7"},
        {std::nullopt, "Pixel 7", "Pixel 7"},
        {"Google", " ", "Google  "},
        {"A\xFF", "a\xFF 1", "a\xFF 1"},
        {"A\xFF", "a\xFE 1", "A\xFF a\xFE 1"},
    };
    for (const auto& [make, model, text] : cases) {
        SCOPED_TRACE(make.value_or("no maker") + ", " + model);
        EXPECT_EQ(cameraText(make, model), text);
    }
}

TEST(CameraText, AMakerAloneIsNoCamera) {
    EXPECT_EQ(cameraText("Canon", std::nullopt), std::nullopt);
    EXPECT_EQ(cameraText("Canon", ""), std::nullopt);
    EXPECT_EQ(cameraText(std::nullopt, ""), std::nullopt);
    EXPECT_EQ(cameraText(std::nullopt, std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace vellomar::ExifUtils
