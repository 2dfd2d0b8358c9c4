#include "ui/components/ScrollThumbGeometry.h"

#include <algorithm>

namespace vellomar {

ScrollThumb ScrollThumbGeometry::thumb() const {
    return scrollThumb(offset_, contentHeight_, containerHeight_);
}

double ScrollThumbGeometry::offsetOfThumbAt(double top) const {
    const double room = containerHeight_ - height();
    if (!isVisible() || room <= 0) return 0;
    return offsetWithin(top / room * (contentHeight_ - containerHeight_));
}

double ScrollThumbGeometry::offsetWithin(double wanted) const {
    return std::clamp(wanted, 0.0, std::max(0.0, contentHeight_ - containerHeight_));
}

double ScrollThumbGeometry::offsetToShow(double top, double height) const {
    const double atBottom = top + height - containerHeight_;
    return offsetWithin(std::min(std::max(offset_, atBottom), top));
}

}  // namespace vellomar
