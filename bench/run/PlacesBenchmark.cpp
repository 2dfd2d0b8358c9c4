#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Program.h"

namespace vellomar::bench {
namespace {

// CPU time for one of `count`, in parts of a second of which there are `parts`.
Result costOfOne(const std::string& job, std::size_t count, double parts, const std::string& unit, double atMost,
                 int rounds) {
    std::vector<double> costs;
    Measurement last;
    for (int round = 0; round < rounds; ++round) {
        last = runProgram("engine_task", {job, std::to_string(count)});
        costs.push_back(last.cpuSeconds / static_cast<double>(count) * parts);
    }
    return {.name = job,
            .rounds = costs,
            .unit = unit,
            .goal = {Direction::atMost, atMost},
            .detail = fmt::format("{} in {:.3f} s CPU, {:.0f} a second", count, last.cpuSeconds,
                                  static_cast<double>(count) / last.cpuSeconds)};
}

}  // namespace

std::vector<Result> benchmarkPlaces(const Arguments& arguments) {
    constexpr std::size_t kLoads = 10;
    return {costOfOne("load-places", kLoads, 1e3, "ms CPU", 150, arguments.rounds),
            costOfOne("find-places", scaled(arguments, 300'000, 10'000), 1e6, "µs CPU", 20, arguments.rounds)};
}

}  // namespace vellomar::bench
