#include "ui/components/ScrollThumb.h"

#include <algorithm>

namespace vellomar {

ScrollThumb scrollThumb(double offset, double contentHeight, double containerHeight) {
    constexpr double kLeastHeight = 24;
    if (contentHeight <= containerHeight || containerHeight <= 0) return {};
    const double wanted = containerHeight / contentHeight * containerHeight;
    const double height = std::min(std::max(wanted, kLeastHeight), containerHeight);
    const double room = containerHeight - height;
    const double top = offset / (contentHeight - containerHeight) * room;
    return {true, std::clamp(top, 0.0, room), height};
}

}  // namespace vellomar
