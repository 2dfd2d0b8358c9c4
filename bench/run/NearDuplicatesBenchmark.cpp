#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Program.h"

namespace vellomar::bench {
namespace {

// In CPU seconds, as the search has nothing to wait for.
Result searchAt(int threshold, double atMost, const Arguments& arguments) {
    const auto count = std::to_string(arguments.files);
    std::vector<double> cpuSeconds;
    Measurement last;
    for (int round = 0; round < arguments.rounds; ++round) {
        last = runProgram("engine_task", {"near-duplicates", count, std::to_string(threshold)});
        cpuSeconds.push_back(last.cpuSeconds);
    }
    return {.name = fmt::format("near-duplicates-{}", threshold),
            .rounds = cpuSeconds,
            .unit = "s CPU",
            .goal = {Direction::atMost, atMost},
            .detail = fmt::format("{} hashes, threshold {}", last.files, threshold)};
}

}  // namespace

// The default threshold, the largest that still finds mostly what looks alike, and one beyond it.
std::vector<Result> benchmarkNearDuplicates(const Arguments& arguments) {
    return {searchAt(4, 2, arguments), searchAt(8, 2, arguments), searchAt(10, 4, arguments)};
}

}  // namespace vellomar::bench
