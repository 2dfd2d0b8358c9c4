#pragma once

namespace vellomar {

// How many files of each kind the scan kept.
struct MediaBreakdown {
    int images = 0;
    int videos = 0;
    int other = 0;

    bool operator==(const MediaBreakdown&) const = default;
};

}  // namespace vellomar
