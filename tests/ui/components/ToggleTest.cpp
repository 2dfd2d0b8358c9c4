#include <QSignalSpy>
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

TEST(YellowToggleStyle, IsACapsuleWithARoundKnobThatSlidesToTheRight) {
    QmlWindow window;
    window.show("Item { YellowToggleStyle { objectName: 'switch'; text: 'On' } }");
    auto& toggle = window.itemNamed("switch");
    const auto& capsule = window.itemNamed("capsule");
    const auto& knob = window.itemNamed("knob");
    EXPECT_EQ(toggle.size(), QSizeF(30, 17));
    EXPECT_EQ(capsule.size(), QSizeF(30, 17));
    EXPECT_EQ(knob.size(), QSizeF(13, 13));
    EXPECT_EQ(knob.position(), QPointF(2, 2));
    EXPECT_EQ(colourOf(capsule), hexColour("2A2A2A"));

    window.click(toggle);
    EXPECT_TRUE(QTest::qWaitFor([&] { return knob.position() == QPointF(15, 2); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return colourOf(capsule) == hexColour("F5C518"); }));
}

TEST(YellowToggleStyle, TogglesWhereverItIsTapped) {
    QmlWindow window;
    window.show("Item { YellowToggleStyle { objectName: 'switch'; text: 'On' } }");
    const auto& toggle = window.itemNamed("switch");
    bool isOn = false;
    for (const QPointF place : {QPointF(1, 8), QPointF(15, 8), QPointF(28, 8), QPointF(15, 1), QPointF(15, 15)}) {
        window.clickAt(place);
        isOn = !isOn;
        EXPECT_EQ(toggle.property("checked").toBool(), isOn) << place.x() << " " << place.y();
    }
}

constexpr auto kBoundToggle = R"(
    Item {
        property bool value: false
        property int asked: 0
        OptionToggle {
            objectName: "option"
            label: "Images"
            subLabel: "All kinds"
            tooltip: "What counts as one."
            checked: parent.value
            onToggled: isOn => { parent.asked += 1; parent.value = isOn }
        }
    }
)";

TEST(OptionToggle, AsksForTheOtherValueAndShowsTheOneItIsBoundTo) {
    QmlWindow window;
    auto& root = window.show(kBoundToggle);
    auto& knob = window.itemNamed("switch");
    for (const bool isOn : {true, false, true}) {
        window.click(knob);
        EXPECT_EQ(root.property("value").toBool(), isOn);
        EXPECT_EQ(knob.property("checked").toBool(), isOn);
    }
    root.setProperty("value", false);
    EXPECT_FALSE(knob.property("checked").toBool());
    EXPECT_EQ(root.property("asked").toInt(), 3);
}

TEST(OptionToggle, StaysAsItIsWhereNothingFollowsIt) {
    QmlWindow window;
    window.show("Item { OptionToggle { label: 'Images' } }");
    window.click(window.itemNamed("switch"));
    EXPECT_FALSE(window.itemNamed("switch").property("checked").toBool());
}

TEST(OptionToggle, TellsItsLabelBrighterWhileOn) {
    QmlWindow window;
    auto& root = window.show(kBoundToggle);
    const auto& label = window.itemNamed("toggleLabel");
    const auto& subLabel = window.itemNamed("toggleSubLabel");
    EXPECT_EQ(colourOf(label), hexColour("909088"));
    EXPECT_EQ(colourOf(subLabel), hexColour("707068"));
    EXPECT_EQ(subLabel.property("font").value<QFont>().pixelSize(), 9);
    root.setProperty("value", true);
    EXPECT_EQ(colourOf(label), hexColour("E8E8E0"));
    EXPECT_EQ(placeOf(label).topLeft(), QPointF(10, 6));
}

TEST(OptionToggle, ShowsAFillWhileHovered) {
    QmlWindow window;
    window.show(kBoundToggle);
    const auto& row = window.itemNamed("option");
    EXPECT_EQ(row.property("radius").toInt(), 4);
    EXPECT_EQ(colourOf(row).alpha(), 0);
    QTest::mouseMove(&window.window(), placeOf(row).center().toPoint());
    window.settle();
    EXPECT_GT(colourOf(row).alpha(), 0);
    EXPECT_LT(colourOf(row).alpha(), 40);
}

TEST(OptionToggle, IsACheckBoxToAScreenReader) {
    QmlWindow window;
    auto& root = window.show(kBoundToggle);
    auto* const box = window.accessible(QAccessible::CheckBox, "Images");
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->state().checkable);
    EXPECT_TRUE(box->state().focusable);
    EXPECT_FALSE(box->state().checked);
    EXPECT_EQ(box->text(QAccessible::Description), "All kinds");
    bool isOn = false;
    for (const QString& action :
         {QAccessibleActionInterface::toggleAction(), QAccessibleActionInterface::pressAction()}) {
        SCOPED_TRACE(action.toStdString());
        box->actionInterface()->doAction(action);
        isOn = !isOn;
        EXPECT_EQ(bool(box->state().checked), isOn);
        EXPECT_EQ(root.property("value").toBool(), isOn);
    }
    EXPECT_EQ(root.property("asked").toInt(), 2);
}

TEST(OptionToggle, IsDrivenByKeys) {
    QmlWindow window;
    auto& root = window.show(kBoundToggle);
    window.press(Qt::Key_Tab);
    EXPECT_EQ(window.focusedName(), "What counts as one.");
    window.press(Qt::Key_Tab);
    EXPECT_EQ(window.focusedName(), "Images");
    bool isOn = false;
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        window.press(key);
        isOn = !isOn;
        EXPECT_EQ(root.property("value").toBool(), isOn) << key;
    }
}

TEST(HelpDot, ShowsItsTextUntilItIsClickedAgain) {
    QmlWindow window;
    window.show("Item { HelpDot { objectName: 'help'; tooltip: 'What it is good for, at some length.' } }");
    auto& dot = window.itemNamed("help");
    EXPECT_EQ(dot.width(), 22);
    EXPECT_EQ(window.itemNamed("circle").size(), QSizeF(14, 14));
    EXPECT_FALSE(dot.property("isOpen").toBool());

    window.click(dot);
    ASSERT_TRUE(dot.property("isOpen").toBool());
    const auto& text = window.itemNamed("popoverText");
    EXPECT_EQ(text.property("text").toString(), "What it is good for, at some length.");
    EXPECT_EQ(colourOf(text), hexColour("E0E0DA"));
    EXPECT_EQ(text.property("font").value<QFont>().pixelSize(), 11);
    const auto& popover = window.itemNamed("popover");
    EXPECT_EQ(popover.width(), 240);
    EXPECT_EQ(colourOf(popover), hexColour("1A1A1A"));
    EXPECT_GE(placeOf(popover).left(), 0);

    window.click(dot);
    EXPECT_FALSE(dot.property("isOpen").toBool());
}

TEST(HelpDot, IsClosedByEscapeAndKeepsTheFocus) {
    QmlWindow window;
    window.show("Item { HelpDot { objectName: 'help'; tooltip: 'Why' } }");
    auto& dot = window.itemNamed("help");
    window.press(Qt::Key_Tab);
    window.press(Qt::Key_Return);
    EXPECT_TRUE(dot.property("isOpen").toBool());
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(dot.property("isOpen").toBool());
    EXPECT_TRUE(dot.hasActiveFocus());
    EXPECT_NE(window.accessible(QAccessible::Button, "Why"), nullptr);
}

TEST(HelpDot, OneExplanationIsOpenAtATime) {
    QmlWindow window;
    window.show(R"(Item {
        HelpDot { objectName: "first"; tooltip: "One" }
        HelpDot { objectName: "second"; tooltip: "Two"; x: 400 }
        TextInput { objectName: "field"; y: 400; width: 100; height: 20; activeFocusOnTab: true }
    })");
    const auto isOpen = [&](const char* dot) { return window.itemNamed(dot).property("isOpen").toBool(); };
    // As a screen reader does it, without going there first.
    for (const char* const name : {"One", "Two"})
        window.accessible(QAccessible::Button, name)->actionInterface()->doAction("Press");
    window.settle();
    EXPECT_FALSE(isOpen("first"));
    EXPECT_TRUE(isOpen("second"));
    window.click(window.itemNamed("first"));
    EXPECT_TRUE(isOpen("first"));
    EXPECT_FALSE(isOpen("second"));
    window.click(window.itemNamed("second"));
    EXPECT_FALSE(isOpen("first"));
    window.click(window.itemNamed("field"));
    EXPECT_FALSE(isOpen("second"));
}

TEST(HelpDot, ItsExplanationIsNeverCutOffByTheWindowOrAPanel) {
    QmlWindow window({900, 600});
    window.show(R"(Item {
        Item { clip: true; width: 60; height: 30; x: 840; y: 570; HelpDot { objectName: "help"; tooltip: "Why? ".repeat(40) } }
    })");
    window.click(window.itemNamed("help"));
    const auto place = placeOf(window.itemNamed("popover"));
    EXPECT_TRUE(QRectF(0, 0, 900, 600).contains(place));
    EXPECT_GT(place.height(), 80);
    for (const QQuickItem* around = window.itemNamed("popover").parentItem(); around != nullptr;
         around = around->parentItem())
        EXPECT_FALSE(around->clip());
}

}  // namespace
}  // namespace vellomar
