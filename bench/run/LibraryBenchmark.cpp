#include <string>

#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {
namespace {

constexpr std::size_t kLargeByMedium = 30;  // the flatness is that of 300,000 files against 10,000
constexpr double kMicro = 1e6;
constexpr double kKibibyte = 1024;

// What a run costs a file beyond the scan, round by round.
struct OwnWork {
    std::vector<double> cpuMicroseconds;
    std::vector<double> memoryKibibytes;
};

double cpuSeconds(const Measurement& measurement) {
    return measurement.cpuSeconds;
}

// One library, with all that is run over it.
class PlannedLibrary {
public:
    PlannedLibrary(const Arguments& arguments, std::size_t fileCount)
        : work_(arguments.keepsFolders), fileCount_(static_cast<double>(fileCount)) {
        makeLibrary(source_, fileCount);
        measureScan();  // warms the caches of the kernel
        scans_.clear();
    }

    // One round.
    void measure() {
        const bool scanFirst = plans_.size() % 2 == 0;
        if (scanFirst) measureScan();
        plans_.push_back(runProgram("engine_task", {"plan-network", source_, dest_}));
        if (!scanFirst) measureScan();
        emptyRuns_.push_back(runProgram("engine_task", {"plan-network", empty_, dest_}));
    }

    [[nodiscard]] OwnWork ownWork() const {
        OwnWork work;
        for (std::size_t i = 0; i < plans_.size(); ++i) {
            const auto memory =
                static_cast<double>(plans_[i].peakMemory) - static_cast<double>(emptyRuns_[i].peakMemory);
            work.cpuMicroseconds.push_back((plans_[i].cpuSeconds - scans_[i].cpuSeconds) / fileCount_ * kMicro);
            work.memoryKibibytes.push_back(memory / fileCount_ / kKibibyte);
        }
        return work;
    }

    [[nodiscard]] std::string cpuText() const {
        return fmt::format("{:.0f} files: run {:.3f} s CPU, scan {:.3f} s CPU", fileCount_,
                           medianOf(valuesOf(plans_, &cpuSeconds)), medianOf(valuesOf(scans_, &cpuSeconds)));
    }

private:
    void measureScan() { scans_.push_back(runProgram("engine_task", {"scan-network", source_})); }

    WorkFolder work_;
    std::string source_ = work_.emptyFolder("source");
    std::string dest_ = work_.emptyFolder("dest");
    std::string empty_ = work_.emptyFolder("empty");
    double fileCount_;
    std::vector<Measurement> plans_;
    std::vector<Measurement> scans_;
    std::vector<Measurement> emptyRuns_;
};

std::vector<double> quotients(const std::vector<double>& dividends, const std::vector<double>& divisors) {
    std::vector<double> result;
    for (std::size_t i = 0; i < dividends.size(); ++i)
        result.push_back(dividends[i] / divisors[i]);
    return result;
}

// The engine's job `name`, which looks at every file of a library, against the bare walk.
std::vector<Result> compareWithWalk(const Arguments& arguments, const std::string& name) {
    const WorkFolder work(arguments.keepsFolders);
    const auto source = work.emptyFolder("source");
    makeLibrary(source, arguments.files);

    const auto floor = [&] { return runProgram("floor_walk", {source}); };
    const auto engine = [&] { return runProgram("engine_task", {name, source}); };
    static_cast<void>(floor());  // warms the caches of the kernel
    const auto rounds = compare(arguments.rounds, floor, engine);
    return {{.name = name,
             .rounds = timeRatios(rounds),
             .unit = "x",
             .goal = {Direction::atMost, 1.5},
             .detail = timesText(rounds)}};
}

}  // namespace

std::vector<Result> benchmarkScan(const Arguments& arguments) {
    return compareWithWalk(arguments, "scan");
}

std::vector<Result> benchmarkEstimate(const Arguments& arguments) {
    return compareWithWalk(arguments, "estimate");
}

std::vector<Result> benchmarkPlan(const Arguments& arguments) {
    PlannedLibrary large(arguments, arguments.files);
    PlannedLibrary medium(arguments, scaled(arguments, 300'000 / kLargeByMedium, 100));
    for (int round = 0; round < arguments.rounds; ++round) {
        large.measure();
        medium.measure();
    }
    const auto ofLarge = large.ownWork();
    const auto ofMedium = medium.ownWork();
    return {{.name = "plan-cpu",
             .rounds = ofLarge.cpuMicroseconds,
             .unit = "us/file",
             .goal = {Direction::atMost, 25},
             .detail = large.cpuText()},
            {.name = "plan-memory",
             .rounds = ofLarge.memoryKibibytes,
             .unit = "KiB/file",
             .goal = {Direction::atMost, 1.5},
             .detail = "peak above that of an empty run"},
            {.name = "plan-cpu-growth",
             .rounds = quotients(ofLarge.cpuMicroseconds, ofMedium.cpuMicroseconds),
             .unit = "x",
             .goal = {Direction::atMost, 1.2},
             .detail = medium.cpuText()},
            {.name = "plan-memory-growth",
             .rounds = quotients(ofLarge.memoryKibibytes, ofMedium.memoryKibibytes),
             .unit = "x",
             .goal = {Direction::atMost, 1.2},
             .detail = fmt::format("smaller library {:.2f} KiB/file", medianOf(ofMedium.memoryKibibytes))}};
}

}  // namespace vellomar::bench
