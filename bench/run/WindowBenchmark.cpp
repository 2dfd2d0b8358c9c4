#include <string>

#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {
namespace {

constexpr double kMilli = 1e3;
constexpr double kKibibyte = 1024.0;
constexpr double kMebibyte = 1024.0 * kKibibyte;

// The application sorts so many small files.
Measurement sortInWindow(const WorkFolder& work, const std::string& source) {
    return runProgram("window_task", {source, work.emptyFolder("sorted")});
}

}  // namespace

std::vector<Result> benchmarkWindow(const Arguments& arguments) {
    constexpr std::size_t kFewPhotos = 6'000;
    constexpr std::size_t kManyPhotos = 4 * kFewPhotos;
    constexpr std::uint64_t kBytesOfPhoto = 6'000;
    const WorkFolder work(arguments.keepsFolders);
    makePhotos(work / "small", scaled(arguments, kFewPhotos, kFewPhotos), kBytesOfPhoto);
    makePhotos(work / "large", scaled(arguments, kManyPhotos, kManyPhotos), kBytesOfPhoto);

    std::vector<double> gaps;
    std::vector<double> growth;
    std::uint64_t memory = 0;
    for (int round = 0; round < arguments.rounds; ++round) {
        const auto small = sortInWindow(work, work / "small");
        const auto large = sortInWindow(work, work / "large");
        gaps.push_back(small.seconds * kMilli);
        const auto more = static_cast<double>(large.peakMemory) - static_cast<double>(small.peakMemory);
        growth.push_back(more / kKibibyte / static_cast<double>(kManyPhotos - kFewPhotos));
        memory = small.peakMemory;
    }
    return {{.name = "window gap",
             .rounds = gaps,
             .unit = "ms",
             .goal = {Direction::atMost, 50},
             .detail = fmt::format("longest time without a turn of the event loop, {} files", kFewPhotos)},
            {.name = "window memory",
             .rounds = growth,
             .unit = "KiB",
             .goal = {Direction::atMost, 3},
             .detail = fmt::format("a file of a real run, {} files against {}, which take {:.0f} MiB", kManyPhotos,
                                   kFewPhotos, static_cast<double>(memory) / kMebibyte)}};
}

}  // namespace vellomar::bench
