#include <QTest>

#include <gtest/gtest.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::placeOf;
using testing::QmlWindow;

QColor edgeOf(const QQuickItem& item) {
    return item.property("border").value<QObject*>()->property("color").value<QColor>();
}

TEST(StatCard, IsYellowOnlyForAValueWithAccent) {
    QmlWindow window;
    window.show("Item { StatCard { objectName: 'card'; label: 'Errors' } }");
    auto& card = window.itemNamed("card");
    struct Case {
        const char* value;
        bool accent;
        const char* colour;
    };
    constexpr Case kCases[] = {
        {"7", false, "E8E8E0"}, {"7", true, "F5C518"}, {"—", false, "E8E8E0"}, {"—", true, "E8E8E0"}};
    for (const auto& [value, accent, colour] : kCases) {
        SCOPED_TRACE(std::string(value) + (accent ? " accent" : ""));
        card.setProperty("value", value);
        card.setProperty("accent", accent);
        EXPECT_EQ(colourOf(window.itemNamed("cardValue")), hexColour(colour));
    }
}

TEST(StatCard, HasItsSizesAndColours) {
    QmlWindow window;
    window.show("Item { StatCard { objectName: 'card'; value: '7'; label: 'Errors' } }");
    const auto& card = window.itemNamed("card");
    const auto& value = window.itemNamed("cardValue");
    const auto& label = window.itemNamed("cardLabel");
    EXPECT_EQ(colourOf(card), hexColour("111111"));
    EXPECT_EQ(edgeOf(card), hexColour("1E1E1E"));
    EXPECT_EQ(card.property("radius").toInt(), 4);
    EXPECT_EQ(placeOf(value).topLeft(), QPointF(20, 16));
    EXPECT_EQ(placeOf(label).bottom(), card.height() - 16);
    const auto valueFont = value.property("font").value<QFont>();
    EXPECT_EQ(valueFont.pixelSize(), 20);
    EXPECT_TRUE(valueFont.bold());
    const auto labelFont = label.property("font").value<QFont>();
    EXPECT_EQ(labelFont.pixelSize(), 10);
    EXPECT_EQ(labelFont.letterSpacing(), 1.5);
    EXPECT_EQ(labelFont.capitalization(), QFont::AllUppercase);
    EXPECT_EQ(label.opacity(), 0.7);
    EXPECT_NE(window.accessible(QAccessible::StaticText, "Errors: 7"), nullptr);
}

TEST(Panel, IsABoxWithALabelAboveItsContent) {
    QmlWindow window;
    window.show(R"(Item {
        Panel { objectName: 'panel'; label: 'Options'; width: 300; Rectangle { objectName: 'content'; implicitHeight: 10 } }
    })");
    auto& panel = window.itemNamed("panel");
    const auto& label = window.itemNamed("panelLabel");
    EXPECT_TRUE(label.isVisible());
    EXPECT_LT(placeOf(label).bottom(), placeOf(window.itemNamed("content")).top());
    EXPECT_EQ(colourOf(panel), hexColour("111111"));
    EXPECT_EQ(edgeOf(panel), hexColour("1E1E1E"));
    EXPECT_EQ(panel.property("radius").toInt(), 4);
    panel.setProperty("bright", true);
    EXPECT_EQ(colourOf(panel), hexColour("1C1C1C"));
    EXPECT_EQ(edgeOf(panel), hexColour("323232"));
    panel.setProperty("label", "");
    EXPECT_FALSE(label.isVisible());
}

TEST(Wordmark, HasThreeColoursInOneHeavyFace) {
    QmlWindow window;
    window.show("Item { Wordmark { size: 32 } }");
    const auto texts = window.shownTexts();
    ASSERT_EQ(texts.size(), 3U);
    const std::pair<const char*, const char*> expected[] = {{"VELLO", "F5C518"}, {" | ", "444440"}, {"MAR", "E8E8E0"}};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(texts[i]->property("text").toString(), expected[i].first);
        EXPECT_EQ(colourOf(*texts[i]), hexColour(expected[i].second));
        const auto font = texts[i]->property("font").value<QFont>();
        EXPECT_EQ(font.pixelSize(), 32);
        EXPECT_EQ(font.weight(), QFont::Black);
    }
    EXPECT_NE(window.accessible(QAccessible::StaticText, "VELLO | MAR"), nullptr);
}

TEST(PulsingDot, SwellsWhileItIsSeen) {
    QmlWindow window;
    window.show("Item { PulsingDot { objectName: 'dot' } }");
    auto& dot = window.itemNamed("dot");
    EXPECT_EQ(dot.size(), QSizeF(7, 7));
    EXPECT_EQ(colourOf(dot), hexColour("FF4444"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return dot.scale() > 1; }));
    dot.setVisible(false);
    EXPECT_FALSE(dot.property("isPulsing").toBool());
    EXPECT_EQ(dot.scale(), 1);
    dot.setVisible(true);
    EXPECT_TRUE(dot.property("isPulsing").toBool());
    window.window().hide();
    EXPECT_FALSE(dot.property("isPulsing").toBool());
}

TEST(StatusPillView, PulsesInGreenWhileRunning) {
    QmlWindow window;
    window.show("Item { StatusPillView { objectName: 'pill' } }");
    auto& pill = window.itemNamed("pill");
    const auto& dot = window.itemNamed("dot");
    EXPECT_TRUE(window.shows("READY"));
    EXPECT_EQ(dot.opacity(), 1);

    pill.setProperty("isRunning", true);
    EXPECT_TRUE(window.shows("RUNNING"));
    EXPECT_EQ(colourOf(dot), hexColour("3D8B5E"));
    EXPECT_EQ(colourOf(window.itemNamed("words")), hexColour("3D8B5E"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return dot.opacity() < 1; }));
    EXPECT_NE(window.accessible(QAccessible::StaticText, "RUNNING"), nullptr);

    pill.setProperty("isRunning", false);
    EXPECT_EQ(dot.opacity(), 1);
}

TEST(StatusPillView, ALongTextIsCutOff) {
    QmlWindow window;
    window.show("Item { StatusPillView { objectName: 'pill'; statusText: 'Done: '.repeat(30) } }");
    EXPECT_EQ(window.itemNamed("pill").width(), 220);
    EXPECT_TRUE(window.itemNamed("words").property("truncated").toBool());
}

}  // namespace
}  // namespace vellomar
