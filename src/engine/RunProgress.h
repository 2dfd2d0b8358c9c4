#pragma once

#include <chrono>
#include <cstddef>
#include <deque>

namespace vellomar {

// How fast the file loop goes, and how long it will take. It is told at regular counts; the estimate rests on the last
// ten of them, so that it follows a run from small photos into long videos.
class RunProgress {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit RunProgress(Time start) : start_(start) {}

    // Seconds since the start.
    [[nodiscard]] double elapsed(Time now) const;

    // Notes that `count` files of `total` are done at `now`, and returns the seconds that are left.
    double etaAfter(std::size_t count, std::size_t total, Time now);

private:
    struct Sample {
        std::size_t count = 0;
        Time time;
    };

    Time start_;
    std::deque<Sample> etaSamples_;
};

}  // namespace vellomar
