#include <array>
#include <ostream>

#include <gtest/gtest.h>

#include "ui/wizard/CalloutPlace.h"

namespace vellomar {
namespace {

constexpr QSizeF kBox(300, 150);

struct StopCase {
    CalloutEdge edge;
    QPointF position;
    QRectF area;
};

void PrintTo(const StopCase& stop, std::ostream* stream) {
    *stream << "edge " << static_cast<int>(stop.edge) << " at " << stop.position.x() << ", " << stop.position.y();
}

TourItem itemOf(const StopCase& stop) {
    return {"", "", "", stop.position, stop.edge, ""};
}

CalloutPlace placed(const StopCase& stop, QSizeF window) {
    return calloutPlace(itemOf(stop), window, stop.area, QRectF({}, window), kBox);
}

TEST(CalloutPlace, StandsAtItsPositionWhereTheAreaIs) {
    // The area ends where the position is.
    const auto beside = placed({CalloutEdge::leading, {0.25, 0.4}, {0, 260, 196, 200}}, {800, 800});
    EXPECT_EQ(beside.tip, QPointF(200, 320));
    EXPECT_EQ(beside.box, QRectF(210, 320 - 75, 300, 150));
    EXPECT_EQ(beside.arrowBase, QPointF(210, 320));

    const auto below = placed({CalloutEdge::top, {0.5, 0.25}, {100, 100, 600, 96}}, {800, 800});
    EXPECT_EQ(below.tip, QPointF(400, 200));
    EXPECT_EQ(below.box, QRectF(250, 210, 300, 150));
    EXPECT_EQ(below.arrowBase, QPointF(400, 210));

    const auto before = placed({CalloutEdge::trailing, {0.75, 0.4}, {604, 100, 196, 600}}, {800, 800});
    EXPECT_EQ(before.tip, QPointF(600, 320));
    EXPECT_EQ(before.box, QRectF(290, 320 - 75, 300, 150));
    EXPECT_EQ(before.arrowBase, QPointF(590, 320));
}

TEST(CalloutPlace, NeverCoversItsArea) {
    constexpr std::array kStops = {
        StopCase{CalloutEdge::leading, {0.13, 0.25}, {16, 88, 288, 116}},
        StopCase{CalloutEdge::top, {0.5, 0.15}, {240, 88, 400, 200}},
        StopCase{CalloutEdge::trailing, {0.85, 0.4}, {657, 72, 243, 484}},
    };
    for (const auto& stop : kStops) {
        SCOPED_TRACE(::testing::PrintToString(stop));
        const auto place = placed(stop, {900, 600});
        EXPECT_FALSE(place.box.intersects(place.spot));
        EXPECT_TRUE(place.spot.contains(stop.area));
    }
}

TEST(CalloutPlace, ItsTipTouchesAnAreaAboveOrBelowItsPosition) {
    // In a high window the position is far below the area, and the box comes up as far as the arrow needs.
    const auto place = placed({CalloutEdge::leading, {0.13, 0.25}, {16, 88, 288, 116}}, {1440, 1440});
    EXPECT_GT(place.tip.y(), place.spot.top());
    EXPECT_LT(place.tip.y(), place.spot.bottom());
    EXPECT_EQ(place.tip.x(), place.spot.right());
    EXPECT_EQ(place.arrowBase.x(), place.box.left());
    EXPECT_GT(place.arrowBase.y(), place.box.top());
    EXPECT_LT(place.arrowBase.y(), place.box.bottom());
    EXPECT_GT(place.box.center().y(), place.tip.y()) << "no further than that";
}

TEST(CalloutPlace, StaysNearAnAreaThatEndsFarFromItsPosition) {
    const auto place = placed({CalloutEdge::leading, {0.13, 0.25}, {16, 400, 288, 300}}, {3840, 2160});
    EXPECT_EQ(place.tip.x(), place.spot.right() + 24);
}

TEST(CalloutPlace, StaysInTheWindow) {
    for (const auto edge : {CalloutEdge::leading, CalloutEdge::top, CalloutEdge::trailing})
        for (const double x : {0.0, 0.5, 1.0})
            for (const double y : {0.0, 0.5, 1.0}) {
                const StopCase stop{edge, {x, y}, QRectF(x * 800, y * 500, 100, 100)};
                SCOPED_TRACE(::testing::PrintToString(stop));
                EXPECT_TRUE(QRectF(0, 0, 900, 600).contains(placed(stop, {900, 600}).box));
            }
}

TEST(CalloutPlace, TheSpotIsWhatCanBeSeenOfTheArea) {
    const auto item = itemOf({CalloutEdge::leading, {0.13, 0.65}, {}});
    const QRectF sight(0, 72, 220, 484);
    EXPECT_EQ(calloutPlace(item, {900, 600}, {16, 300, 190, 400}, sight, kBox).spot, QRectF(12, 296, 198, 260));
}

TEST(CalloutPlace, AnAreaOutOfSightLeavesThePosition) {
    const auto item = itemOf({CalloutEdge::leading, {0.5, 0.5}, {}});
    const auto place = calloutPlace(item, {900, 600}, {0, 700, 100, 100}, {0, 0, 900, 600}, kBox);
    EXPECT_TRUE(place.spot.isEmpty());
    EXPECT_EQ(place.tip, QPointF(450, 300));
}

TEST(BestTop, BringsTheAreaToThePosition) {
    const QRectF sight(0, 72, 220, 484);
    EXPECT_EQ(bestTop(itemOf({CalloutEdge::leading, {0.13, 0.65}, {}}), {900, 600}, 100, sight), 340);
    EXPECT_EQ(bestTop(itemOf({CalloutEdge::top, {0.5, 0.4}, {}}), {900, 600}, 60, sight), 176) << "it ends above it";
}

TEST(BestTop, ShowsAHighAreaFromItsTop) {
    const QRectF sight(0, 72, 220, 484);
    EXPECT_EQ(bestTop(itemOf({CalloutEdge::leading, {0.13, 0.25}, {}}), {900, 600}, 1000, sight), 88);
}

}  // namespace
}  // namespace vellomar
