#pragma once

#include <QList>
#include <QPointF>
#include <QString>

namespace vellomar {

// An edge of a callout, as it is read from left to right.
enum class CalloutEdge { leading, top, trailing };

// One stop of the tour: what is said, and where in the window.
struct TourItem {
    QString title;
    QString description;
    QString icon;                                  // name of a symbol
    QPointF position;                              // x and y as fractions of the window's width and height
    CalloutEdge arrowEdge = CalloutEdge::leading;  // the callout's edge with the arrow
    QString area;                                  // name of the area that it speaks of
};

// The stops, in their order, as they are compiled in.
[[nodiscard]] QList<TourItem> tourItems();

}  // namespace vellomar
