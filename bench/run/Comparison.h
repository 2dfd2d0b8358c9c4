// Two programs side by side.
#pragma once

#include <functional>
#include <vector>

#include "run/Program.h"

namespace vellomar::bench {

// The middle one; the mean of the two in the middle of an even number. `values` must not be empty.
[[nodiscard]] double medianOf(std::vector<double> values);

// What each round gave.
struct Rounds {
    std::vector<Measurement> floor;
    std::vector<Measurement> engine;
};

using MeasuredRun = std::function<Measurement()>;

// Runs both `count` times, by turns and each first in every other round, so that neither gains from what the machine
// is doing meanwhile. Throws if they did not handle the same files and bytes.
[[nodiscard]] Rounds compare(int count, const MeasuredRun& floor, const MeasuredRun& engine);

// `value` of every measurement.
[[nodiscard]] std::vector<double> valuesOf(const std::vector<Measurement>& measurements,
                                           const std::function<double(const Measurement&)>& value);

// Engine seconds by floor seconds, round by round.
[[nodiscard]] std::vector<double> timeRatios(const Rounds& rounds);

// "engine 1.234 s, floor 1.100 s", medians.
[[nodiscard]] std::string timesText(const Rounds& rounds);

}  // namespace vellomar::bench
