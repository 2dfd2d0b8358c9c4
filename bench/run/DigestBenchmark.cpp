#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {

std::vector<Result> benchmarkDigest(const Arguments& arguments) {
    constexpr std::size_t kMebibyte = 1024 * 1024;
    const WorkFolder work(arguments.keepsFolders);
    const auto file = work / "large";
    makeFile(file, scaled(arguments, 512, 16) * kMebibyte);

    const auto floor = [&] { return runProgram("floor_hash", {file}); };
    const auto engine = [&] { return runProgram("engine_task", {"digest", file}); };
    static_cast<void>(floor());  // warms the page cache
    const auto rounds = compare(arguments.rounds, floor, engine);
    return {{.name = "digest",
             .rounds = timeRatios(rounds),
             .unit = "x",
             .goal = {Direction::atMost, 1.05},
             .detail = timesText(rounds)}};
}

}  // namespace vellomar::bench
