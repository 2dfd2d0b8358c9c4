// Measures the engine against bare programs that do the same job, and against our goals.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <sys/resource.h>

#include "run/Arguments.h"
#include "run/Benchmarks.h"
#include "run/Interruption.h"
#include "run/Report.h"

namespace vellomar::bench {
namespace {

constexpr const char* kUsage = R"(Usage: vellomar_bench [OPTION...]

  --only NAME    scan, estimate, plan, copy, copy-small, digest, duplicates, near-duplicates, metadata,
                 reading, requests, pictures, places, undo, window or plan-window; may be given several times
  --files N      size of the large library instead of 300,000; all corpora are scaled alike, for a quick look
  --rounds N     rounds of each comparison, 5 by default; medians count
  --json         the results as JSON
  --strict       exit status 1 when a goal is missed
  --keep         leave the corpora where temporary files go
  --help         this text
)";

using Benchmark = std::vector<Result> (*)(const Arguments&);

const std::vector<std::pair<std::string, Benchmark>>& benchmarks() {
    static const std::vector<std::pair<std::string, Benchmark>> all = {
        {"scan", &benchmarkScan},
        {"estimate", &benchmarkEstimate},
        {"plan", &benchmarkPlan},
        {"copy", &benchmarkCopyOfPhotos},
        {"copy-small", &benchmarkCopyOfSmallFiles},
        {"digest", &benchmarkDigest},
        {"duplicates", &benchmarkDuplicates},
        {"near-duplicates", &benchmarkNearDuplicates},
        {"metadata", &benchmarkMetadata},
        {"reading", &benchmarkReading},
        {"requests", &benchmarkRequests},
        {"pictures", &benchmarkPictures},
        {"places", &benchmarkPlaces},
        {"undo", &benchmarkUndo},
        {"window", &benchmarkWindow},
        {"plan-window", &benchmarkPlanWindow},
    };
    return all;
}

void requireKnown(const std::vector<std::string>& names) {
    for (const auto& name : names)
        if (std::ranges::none_of(benchmarks(), [&](const auto& known) { return known.first == name; }))
            throw std::runtime_error("there is no benchmark " + name);
}

// The engine lowers the priority of its runs. With all programs as low as that, other work on the machine is as hard
// on a floor as on the engine.
void lowerPriorityLikeTheEngine() {
    constexpr int kNicenessOfRuns = 10;
    setpriority(PRIO_PROCESS, 0, kNicenessOfRuns);
}

// In UTC, as on many build machines, local dates would cost less than they cost our users.
void liveInAZoneWithSummerTime() {
    setenv("TZ", "Europe/Berlin", 1);
}

std::vector<Result> runBenchmarks(const Arguments& arguments) {
    std::vector<Result> results;
    for (const auto& [name, benchmark] : benchmarks()) {
        if (!arguments.only.empty() && std::ranges::find(arguments.only, name) == arguments.only.end()) continue;
        fmt::print(stderr, "{} …\n", name);
        std::ranges::move(benchmark(arguments), std::back_inserter(results));
    }
    return results;
}

int run(const Arguments& arguments) {
    requireKnown(arguments.only);
    catchInterruptions();
    lowerPriorityLikeTheEngine();
    liveInAZoneWithSummerTime();
    const auto results = runBenchmarks(arguments);
    fmt::print("{}\n", arguments.wantsJson ? jsonOf(results) : tableText(results));
    return arguments.isStrict && !std::ranges::all_of(results, &Result::isMet) ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace

std::size_t scaled(const Arguments& arguments, std::size_t count, std::size_t least) {
    static const std::size_t fullSize = Arguments{}.files;
    return std::max(least, count * arguments.files / fullSize);
}

}  // namespace vellomar::bench

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    try {
        const auto arguments = argumentsFrom({argv + 1, argv + argc});
        if (!arguments.wantsHelp) return run(arguments);
        std::fputs(kUsage, stdout);
    } catch (const std::exception& error) {
        fmt::print(stderr, "vellomar_bench: {}\n", error.what());
        return 2;
    }
}
