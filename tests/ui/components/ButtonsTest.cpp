#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::placeOf;
using testing::QmlWindow;

constexpr auto kFourButtons = R"(
    Column {
        padding: 20
        spacing: 20
        ToolRowButton { objectName: "tool"; symbol: "eye"; text: "Estimate" }
        PrimaryButton { objectName: "primary"; text: "SORT" }
        SecondaryButton { objectName: "secondary"; text: "CANCEL" }
        CloseButton { objectName: "close" }
    }
)";
constexpr const char* kNames[] = {"tool", "primary", "secondary", "close"};

QColor colourOfPart(QQuickItem& button, const char* part, const char* property) {
    return button.findChild<QObject*>(part)->property(property).value<QColor>();
}

TEST(Buttons, AreClickedByTheMouseAndByReturnEnterAndSpace) {
    QmlWindow window;
    window.show(kFourButtons);
    for (const char* const name : kNames) {
        SCOPED_TRACE(name);
        auto& button = window.itemNamed(name);
        const QSignalSpy clicks(&button, SIGNAL(clicked()));
        window.click(button);
        EXPECT_EQ(clicks.count(), 1);
        button.forceActiveFocus(Qt::TabFocusReason);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            window.press(key);
        EXPECT_EQ(clicks.count(), 4);
        window.press(Qt::Key_A);
        EXPECT_EQ(clicks.count(), 4);
    }
}

TEST(Buttons, AreReachedByTabInTheirOrderAndShowIt) {
    QmlWindow window;
    window.show(kFourButtons);
    for (const char* const name : kNames) {
        SCOPED_TRACE(name);
        auto& button = window.itemNamed(name);
        const auto* const ring = button.findChild<QQuickItem*>("focusRing");
        EXPECT_FALSE(ring->isVisible());
        window.press(Qt::Key_Tab);
        EXPECT_TRUE(button.hasActiveFocus());
        EXPECT_TRUE(ring->isVisible());
    }
}

TEST(Buttons, DisabledOnesAreDimmedAndIgnoreClicksAndTab) {
    QmlWindow window;
    window.show("Item { ToolRowButton { objectName: 'tool'; text: 'UNDO'; enabled: false } }");
    auto& button = window.itemNamed("tool");
    EXPECT_EQ(button.opacity(), 0.5);
    const QSignalSpy clicks(&button, SIGNAL(clicked()));
    window.click(button);
    window.press(Qt::Key_Tab);
    window.press(Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 0);
}

TEST(Buttons, AreButtonsToAScreenReaderWhichCanPressThem) {
    QmlWindow window;
    window.show(kFourButtons);
    for (const auto& [objectName, name] : {std::pair("tool", "Estimate"), std::pair("primary", "SORT"),
                                           std::pair("secondary", "CANCEL"), std::pair("close", "✕")}) {
        SCOPED_TRACE(name);
        auto* const button = window.accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(button->state().focusable);
        const QSignalSpy clicks(&window.itemNamed(objectName), SIGNAL(clicked()));
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(clicks.count(), 1);
    }
    EXPECT_EQ(window.accessible(QAccessible::Button, "✕")->text(QAccessible::Description), "Close");
}

TEST(Buttons, AScreenReaderCannotPressADisabledOne) {
    QmlWindow window;
    window.show("Item { ToolRowButton { objectName: 'tool'; text: 'UNDO'; enabled: false } }");
    auto* const button = window.accessible(QAccessible::Button, "UNDO");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(QAccessible::Description), "Unavailable");
    const QSignalSpy clicks(&window.itemNamed("tool"), SIGNAL(clicked()));
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 0);
}

TEST(Buttons, HaveTheirSizesAndColours) {
    QmlWindow window;
    window.show(kFourButtons);
    auto& tool = window.itemNamed("tool");
    EXPECT_EQ(tool.findChild<QQuickItem*>("symbol")->width(), 10);
    const auto font = tool.findChild<QObject*>("label")->property("font").value<QFont>();
    EXPECT_EQ(font.pixelSize(), 9);
    EXPECT_EQ(font.capitalization(), QFont::AllUppercase);

    auto& primary = window.itemNamed("primary");
    EXPECT_EQ(colourOfPart(primary, "box", "color"), hexColour("F5C518"));
    EXPECT_EQ(colourOfPart(primary, "label", "color"), hexColour("0A0A0A"));
    EXPECT_EQ(primary.findChild<QObject*>("box")->property("radius").toInt(), 3);
    QTest::mouseMove(&window.window(), placeOf(primary).center().toPoint());
    window.settle();
    EXPECT_EQ(colourOfPart(primary, "box", "color"), hexColour("FFD732"));

    auto& secondary = window.itemNamed("secondary");
    EXPECT_EQ(colourOfPart(secondary, "label", "color"), hexColour("707068"));
    auto* const edge = secondary.findChild<QObject*>("box")->property("border").value<QObject*>();
    EXPECT_EQ(edge->property("color").value<QColor>(), hexColour("2A2A2A"));
    secondary.setProperty("accent", true);
    EXPECT_EQ(colourOfPart(secondary, "label", "color"), hexColour("F5C518"));
    EXPECT_EQ(edge->property("color").value<QColor>(), hexColour("F5C518"));

    EXPECT_EQ(colourOfPart(window.itemNamed("close"), "label", "color"), hexColour("707068"));
}

}  // namespace
}  // namespace vellomar
