#include "ui/components/ScrollThumbGeometry.h"

#include <algorithm>
#include <optional>

namespace vellomar {
namespace {

// How far a key scrolls; nothing for one that does not.
std::optional<double> stepOf(int key, double contentHeight, double containerHeight) {
    constexpr double kLine = 40;
    constexpr double kPage = 0.9;
    switch (key) {
        case Qt::Key_Up: return -kLine;
        case Qt::Key_Down: return kLine;
        case Qt::Key_PageUp: return -kPage * containerHeight;
        case Qt::Key_PageDown: return kPage * containerHeight;
        case Qt::Key_Home: return -contentHeight;
        case Qt::Key_End: return contentHeight;
        default: return std::nullopt;
    }
}

}  // namespace

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

double ScrollThumbGeometry::offsetAfterKey(int key) const {
    const auto step = stepOf(key, contentHeight_, containerHeight_);
    return step && isVisible() ? offsetWithin(offset_ + *step) : -1;
}

}  // namespace vellomar
