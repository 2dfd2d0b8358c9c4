#include "ui/wizard/CalloutPlace.h"

#include <algorithm>

namespace vellomar {
namespace {

constexpr double kSpotMargin = 4;     // around the area
constexpr double kFarthest = 24;      // from the arrow's tip to the spot
constexpr double kCorner = 20;        // from the arrow to the box's corners
constexpr double kWindowMargin = 12;  // around the box
constexpr double kBottomMargin = 56;  // below it, where the tour can be skipped
constexpr double kScrollMargin = 16;  // above what is scrolled to

// The value nearest to `wanted`; the middle where there is no room between the ends.
double within(double wanted, double low, double high) {
    return low > high ? (low + high) / 2 : std::clamp(wanted, low, high);
}

QPointF positionIn(QSizeF window, const TourItem& item) {
    return {item.position.x() * window.width(), item.position.y() * window.height()};
}

// Of an area that cannot be seen the position stands for it.
QRectF spotOf(const QRectF& area, const QRectF& sight, QPointF position) {
    const auto seen = area.adjusted(-kSpotMargin, -kSpotMargin, kSpotMargin, kSpotMargin).intersected(sight);
    return seen.isEmpty() ? QRectF(position, QSizeF(0, 0)) : seen;
}

// The point on the spot's near edge, or a little way off, that is nearest to the position.
QPointF tipAt(QPointF position, CalloutEdge edge, const QRectF& spot) {
    const QPointF inside(within(position.x(), spot.left() + kCorner, spot.right() - kCorner),
                         within(position.y(), spot.top() + kCorner, spot.bottom() - kCorner));
    switch (edge) {
        case CalloutEdge::leading: return {within(position.x(), spot.right(), spot.right() + kFarthest), inside.y()};
        case CalloutEdge::trailing: return {within(position.x(), spot.left() - kFarthest, spot.left()), inside.y()};
        case CalloutEdge::top: break;
    }
    return {inside.x(), within(position.y(), spot.bottom(), spot.bottom() + kFarthest)};
}

// Where the box begins along the edge with the arrow: in the middle around the position, unless that is out of the
// arrow's reach.
double alongEdge(double position, double tip, double length) {
    return within(position - length / 2, tip - length + kCorner, tip - kCorner);
}

QPointF cornerOf(QPointF position, CalloutEdge edge, QPointF tip, QSizeF box) {
    switch (edge) {
        case CalloutEdge::leading:
            return {tip.x() + CalloutPlace::kArrowLength, alongEdge(position.y(), tip.y(), box.height())};
        case CalloutEdge::trailing:
            return {tip.x() - CalloutPlace::kArrowLength - box.width(), alongEdge(position.y(), tip.y(), box.height())};
        case CalloutEdge::top: break;
    }
    return {alongEdge(position.x(), tip.x(), box.width()), tip.y() + CalloutPlace::kArrowLength};
}

QPointF inWindow(QPointF corner, QSizeF window, QSizeF box) {
    return {within(corner.x(), kWindowMargin, window.width() - box.width() - kWindowMargin),
            within(corner.y(), kWindowMargin, window.height() - box.height() - kBottomMargin)};
}

QPointF baseOn(const QRectF& box, CalloutEdge edge, QPointF tip) {
    const QPointF beside(within(tip.x(), box.left() + kCorner, box.right() - kCorner),
                         within(tip.y(), box.top() + kCorner, box.bottom() - kCorner));
    switch (edge) {
        case CalloutEdge::leading: return {box.left(), beside.y()};
        case CalloutEdge::trailing: return {box.right(), beside.y()};
        case CalloutEdge::top: break;
    }
    return {beside.x(), box.top()};
}

QPointF outOf(QPointF base, CalloutEdge edge) {
    switch (edge) {
        case CalloutEdge::leading: return base - QPointF(CalloutPlace::kArrowLength, 0);
        case CalloutEdge::trailing: return base + QPointF(CalloutPlace::kArrowLength, 0);
        case CalloutEdge::top: break;
    }
    return base - QPointF(0, CalloutPlace::kArrowLength);
}

}  // namespace

CalloutPlace calloutPlace(const TourItem& item, QSizeF window, const QRectF& area, const QRectF& sight, QSizeF box) {
    const auto position = positionIn(window, item);
    const auto spot = spotOf(area, sight, position);
    const auto tip = tipAt(position, item.arrowEdge, spot);
    const QRectF place(inWindow(cornerOf(position, item.arrowEdge, tip, box), window, box), box);
    // What the window's edge has pushed aside takes its arrow along.
    const auto base = baseOn(place, item.arrowEdge, tip);
    return {spot, place, outOf(base, item.arrowEdge), base};
}

double bestTop(const TourItem& item, QSizeF window, double height, const QRectF& sight) {
    const auto position = positionIn(window, item).y();
    const auto wanted = item.arrowEdge == CalloutEdge::top ? position - height - kSpotMargin : position - height / 2;
    return std::max(wanted, sight.top() + kScrollMargin);
}

}  // namespace vellomar
