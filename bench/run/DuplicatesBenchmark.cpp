#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {
namespace {

double seconds(const Measurement& measurement) {
    return measurement.seconds;
}

}  // namespace

std::vector<Result> benchmarkDuplicates(const Arguments& arguments) {
    const WorkFolder work(arguments.keepsFolders);
    const auto source = work.emptyFolder("source");
    const auto dest = work.emptyFolder("dest");
    makePhotosWithDuplicates(source, scaled(arguments, 1'500, 100));

    // A run that reads every file would do what a run without digests does, and read every file.
    const auto digestAll = [&] { return runProgram("engine_task", {"digest-all", source}); };
    const auto readEverything = [&] {
        auto total = runProgram("engine_task", {"plan", source, dest});
        total.seconds += digestAll().seconds;
        return total;
    };
    const auto engine = [&] { return runProgram("engine_task", {"plan-hashed", source, dest}); };
    static_cast<void>(digestAll());  // warms the page cache
    const auto rounds = compare(arguments.rounds, readEverything, engine);

    std::vector<double> gains;
    for (const double ratio : timeRatios(rounds))
        gains.push_back(1 / ratio);
    return {{.name = "duplicates",
             .rounds = gains,
             .unit = "x faster",
             .goal = {Direction::atLeast, 6},
             .detail =
                 fmt::format("engine {:.3f} s, reading every file {:.3f} s",
                             medianOf(valuesOf(rounds.engine, &seconds)), medianOf(valuesOf(rounds.floor, &seconds)))}};
}

}  // namespace vellomar::bench
