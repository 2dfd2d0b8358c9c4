#pragma once

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "ui/wizard/TourItems.h"

namespace vellomar {

// Where a stop of the tour is drawn, in the window's coordinates.
struct CalloutPlace {
    Q_GADGET
    Q_PROPERTY(QRectF spot MEMBER spot)
    Q_PROPERTY(QRectF box MEMBER box)
    Q_PROPERTY(QPointF tip MEMBER tip)
    Q_PROPERTY(QPointF arrowBase MEMBER arrowBase)

public:
    QRectF spot;        // the area that it speaks of, as far as it can be seen
    QRectF box;         // the callout, without its arrow
    QPointF tip;        // of the arrow
    QPointF arrowBase;  // the middle of the arrow's foot, on the edge of the box

    // How far the arrow stands out of the box.
    static constexpr double kArrowLength = 10;
};

// A stop's place in a window of that size. The box stands at the stop's position, with the arrow on the stop's edge of
// it; it gives way as far as is needed for the arrow to touch the area, for the box not to cover the area, and for both
// to lie within the window. `area` is where the area lies, `sight` the part of the window in which it can be seen.
[[nodiscard]] CalloutPlace calloutPlace(const TourItem& item, QSizeF window, const QRectF& area, const QRectF& sight,
                                        QSizeF box);

// The upper end at which an area of that height would lie best for the stop's position, should it scroll within
// `sight`.
[[nodiscard]] double bestTop(const TourItem& item, QSizeF window, double height, const QRectF& sight);

}  // namespace vellomar
