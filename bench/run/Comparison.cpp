#include "run/Comparison.h"

#include <algorithm>
#include <stdexcept>

#include <fmt/format.h>

namespace vellomar::bench {
namespace {

void requireSameAmount(const Measurement& floor, const Measurement& engine) {
    if (floor.files == engine.files && floor.bytes == engine.bytes && floor.files > 0) return;
    throw std::runtime_error(
        fmt::format("the floor handled {} files of {} bytes in all, the engine {} files of {} bytes in all",
                    floor.files, floor.bytes, engine.files, engine.bytes));
}

double secondsOf(const Measurement& measurement) {
    return measurement.seconds;
}

}  // namespace

double medianOf(std::vector<double> values) {
    std::ranges::sort(values);
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Rounds compare(int count, const MeasuredRun& floor, const MeasuredRun& engine) {
    Rounds rounds;
    for (int round = 0; round < count; ++round) {
        if (round % 2 == 0) rounds.floor.push_back(floor());
        rounds.engine.push_back(engine());
        if (round % 2 == 1) rounds.floor.push_back(floor());
        requireSameAmount(rounds.floor.back(), rounds.engine.back());
    }
    return rounds;
}

std::vector<double> valuesOf(const std::vector<Measurement>& measurements,
                             const std::function<double(const Measurement&)>& value) {
    std::vector<double> values;
    for (const auto& measurement : measurements)
        values.push_back(value(measurement));
    return values;
}

std::vector<double> timeRatios(const Rounds& rounds) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < rounds.floor.size(); ++i)
        ratios.push_back(rounds.engine[i].seconds / rounds.floor[i].seconds);
    return ratios;
}

std::string timesText(const Rounds& rounds) {
    return fmt::format("engine {:.3f} s, floor {:.3f} s", medianOf(valuesOf(rounds.engine, &secondsOf)),
                       medianOf(valuesOf(rounds.floor, &secondsOf)));
}

}  // namespace vellomar::bench
