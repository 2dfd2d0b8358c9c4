#include <QMetaProperty>
#include <map>
#include <string>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

TEST(HexColour, ReadsSixDigitsAsOpaque) {
    EXPECT_EQ(hexColour("F5C518"), QColor(0xF5, 0xC5, 0x18, 0xFF));
    EXPECT_EQ(hexColour("f5c518"), QColor(0xF5, 0xC5, 0x18, 0xFF));
    EXPECT_EQ(hexColour("#F5-C5 18"), QColor(0xF5, 0xC5, 0x18, 0xFF));
}

TEST(HexColour, ReadsTheAlphaInFront) {
    EXPECT_EQ(hexColour("80F5C518"), QColor(0xF5, 0xC5, 0x18, 0x80));
    EXPECT_EQ(hexColour("00000000"), QColor(0, 0, 0, 0));
}

TEST(HexColour, WhatIsNoColourIsBlack) {
    for (const auto* text : {"", "GGGGGG", "123456789", "#"})
        EXPECT_EQ(hexColour(text), QColor(Qt::black)) << text;
}

TEST(Theme, HasTheseColoursByTheseNames) {
    const std::map<std::string, std::string> expected = {
        {"windowBackground", "0A0A0A"},
        {"sidePanel", "111111"},
        {"tableHeader", "161616"},
        {"inset", "0D0D0D"},
        {"hairline", "1E1E1E"},
        {"edge", "2A2A2A"},
        {"yellow", "F5C518"},
        {"yellowHover", "FFD732"},
        {"yellowTint", "1C1A00"},
        {"rowTint", "111100"},
        {"text", "E8E8E0"},
        {"bodyText", "B0B0A8"},
        {"brighterBodyText", "C0C0B8"},
        {"secondaryText", "909088"},
        {"dimmerSecondaryText", "888880"},
        {"tertiaryText", "707068"},
        {"dimmerTertiaryText", "555550"},
        {"faintText", "444440"},
        {"offText", "666660"},
        {"disabledText", "505050"},
        {"success", "3D8B5E"},
        {"logAmber", "B8870A"},
        {"logRed", "C0392B"},
        {"copyBadge", "0D1A12"},
        {"skipBadge", "1A0D0D"},
        {"skipText", "7A4040"},
        {"alertRed", "FF4444"},
        {"alertOrange", "FF8C00"},
        {"duplicateOrange", "FF8C42"},
        {"duplicateBadge", "2A1500"},
        {"duplicateRow", "1A0E00"},
        {"warningText", "C8A060"},
        {"cameraBar", "5B9BD5"},
        {"brightPanel", "1C1C1C"},
        {"brightEdge", "323232"},
        {"scrollTrack", "333333"},
        {"progressTrack", "1A1A1A"},
        {"popover", "1A1A1A"},
        {"popoverText", "E0E0DA"},
        {"errorBar", "1A0808"},
        {"importedBadge", "0A1A0A"},
    };
    std::map<std::string, std::string> found;
    const auto& type = Theme::staticMetaObject;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const auto value = type.property(i).read(&Theme::shared());
        if (value.metaType().id() == QMetaType::QColor)
            found[type.property(i).name()] = value.value<QColor>().name().mid(1).toUpper().toStdString();
    }
    EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace vellomar
