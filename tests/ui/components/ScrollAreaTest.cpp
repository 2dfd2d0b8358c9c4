#include <QTest>

#include <gtest/gtest.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::placeOf;
using testing::QmlWindow;

// 100 high, for a content that is `contentHeight` high with a button at its end.
std::string area(int contentHeight) {
    return R"(Item {
        ScrollArea {
            objectName: "area"
            width: 200
            height: 100
            Item {
                width: parent.width
                height: )" +
           std::to_string(contentHeight) + R"(
                CloseButton { objectName: "last"; anchors.bottom: parent.bottom }
            }
        }
        CloseButton { objectName: "outside"; y: 200 }
    })";
}

double offsetIn(QmlWindow& window) {
    return window.itemNamed("area").property("contentY").toDouble();
}

void drag(QmlWindow& window, QPoint from, QPoint to) {
    QTest::mousePress(&window.window(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&window.window(), to);
    QTest::mouseRelease(&window.window(), Qt::LeftButton, {}, to);
    window.settle();
}

TEST(ScrollTrack, ShowsAThumbInProportion) {
    QmlWindow window;
    window.show(area(400));
    const auto& track = window.itemNamed("scrollTrack");
    const auto& thumb = window.itemNamed("thumb");
    EXPECT_TRUE(track.isVisible());
    EXPECT_EQ(track.width(), 4);
    EXPECT_EQ(track.property("radius").toInt(), 2);
    EXPECT_EQ(track.property("color").value<QColor>(), hexColour("333333"));
    EXPECT_EQ(thumb.property("color").value<QColor>(), hexColour("F5C518"));
    EXPECT_EQ(thumb.height(), 25);
    window.itemNamed("area").setProperty("contentY", 300);
    EXPECT_EQ(thumb.y(), 75);
}

TEST(ScrollTrack, TheThumbOfAVeryLongContentIsStillThere) {
    QmlWindow window;
    window.show(area(1'000'000));
    EXPECT_EQ(window.itemNamed("thumb").height(), 24);
}

TEST(ScrollTrack, IsNotThereForWhatFits) {
    QmlWindow window;
    window.show(area(100));
    EXPECT_FALSE(window.itemNamed("scrollTrack").isVisible());
    window.press(Qt::Key_PageDown);
    EXPECT_EQ(offsetIn(window), 0);
}

TEST(ScrollTrack, IsDraggedAndClicked) {
    QmlWindow window;
    window.show(area(400));
    const int x = qRound(placeOf(window.itemNamed("scrollTrack")).center().x());
    drag(window, {x, 10}, {x, 35});
    EXPECT_EQ(offsetIn(window), 100);
    drag(window, {x, 30}, {x, 500});
    EXPECT_EQ(offsetIn(window), 300);
    window.clickAt(QPointF(x, 20));  // the thumb's middle comes here
    EXPECT_EQ(offsetIn(window), 30);
}

TEST(ScrollTrack, IsPassedOverByTab) {
    QmlWindow window;
    window.show(area(400));
    for (const char* const name : {"last", "outside", "last"}) {
        window.press(Qt::Key_Tab);
        EXPECT_TRUE(window.itemNamed(name).hasActiveFocus()) << name;
    }
}

TEST(ScrollArea, ScrollsByKeysThatNothingInsideTakes) {
    QmlWindow window;
    window.show(area(400));
    window.itemNamed("last").forceActiveFocus();
    struct Case {
        Qt::Key key;
        double offset;
    };
    constexpr Case kCases[] = {{Qt::Key_Home, 0},    {Qt::Key_Down, 40},   {Qt::Key_PageDown, 130}, {Qt::Key_Up, 90},
                               {Qt::Key_PageUp, 0},  {Qt::Key_Up, 0},      {Qt::Key_End, 300},      {Qt::Key_Down, 300},
                               {Qt::Key_Right, 300}, {Qt::Key_PageUp, 210}};
    for (const auto& [key, offset] : kCases) {
        window.press(key);
        EXPECT_EQ(offsetIn(window), offset) << key;
    }
}

TEST(ScrollArea, ShowsWhatTheFocusComesUpon) {
    QmlWindow window;
    window.show(area(400));
    window.press(Qt::Key_Tab);
    EXPECT_TRUE(window.itemNamed("last").hasActiveFocus());
    EXPECT_EQ(offsetIn(window), 300);
}

TEST(ScrollArea, ScrollsByTheWheel) {
    QmlWindow window;
    window.show(area(400));
    QWheelEvent wheel({50, 50}, {50, 50}, {0, -60}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window.window(), &wheel);
    EXPECT_TRUE(QTest::qWaitFor([&] { return offsetIn(window) > 0; }));
}

}  // namespace
}  // namespace vellomar
