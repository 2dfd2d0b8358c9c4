#pragma once

namespace vellomar {

// Where the thumb of a scrollbar lies on its track, which is as long as the container of the scrolled content.
struct ScrollThumb {
    bool isVisible = false;  // not when the content fits
    double top = 0;          // from the track's beginning
    double height = 0;

    bool operator==(const ScrollThumb&) const = default;
};

// The thumb for a content that is scrolled by `offset`. All in one unit. Pure; any thread.
[[nodiscard]] ScrollThumb scrollThumb(double offset, double contentHeight, double containerHeight);

}  // namespace vellomar
