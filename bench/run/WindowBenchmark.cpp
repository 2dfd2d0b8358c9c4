#include <filesystem>
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

// So many pictures of 24 megapixels below "pictures", though few of them differ: each takes as long to decode.
void makeManyPictures(const WorkFolder& work, std::size_t count) {
    constexpr std::size_t kDifferent = 6;
    const auto different = makePictures(work / "pictures", kDifferent);
    for (std::size_t i = different.size(); i < count; ++i)
        std::filesystem::create_hard_link(different[i % different.size()],
                                          work / fmt::format("pictures/IMG_20230814_1{:05}.jpg", i));
}

// Looks through the plan of the photos in `source`; see plan_task.
Measurement lookThroughPlan(const WorkFolder& work, const char* kind, const std::string& source) {
    return runProgram("plan_task", {kind, source, work.emptyFolder("plan")});
}

// The application sorts so many small files.
Measurement sortInWindow(const WorkFolder& work, const std::string& source) {
    return runProgram("window_task", {source, work.emptyFolder("sorted")});
}

}  // namespace

std::vector<Result> benchmarkPlanWindow(const Arguments& arguments) {
    constexpr std::size_t kRows = 5'000;
    const WorkFolder work(arguments.keepsFolders);
    makeLibrary(work / "names", kRows);
    makeManyPictures(work, kRows);

    std::vector<double> binding;
    std::vector<double> search;
    std::vector<double> gaps;
    std::uint64_t memory = 0;
    for (int round = 0; round < arguments.rounds; ++round) {
        binding.push_back(lookThroughPlan(work, "bind", work / "names").seconds * kMilli);
        search.push_back(lookThroughPlan(work, "search", work / "names").seconds * kMilli);
        const auto scrolled = lookThroughPlan(work, "scroll", work / "pictures");
        gaps.push_back(scrolled.seconds * kMilli);
        memory = scrolled.peakMemory;
    }
    return {
        {.name = "plan row",
         .rounds = binding,
         .unit = "ms",
         .goal = {Direction::atMost, 1},
         .detail = "to bring a row of the plan into sight, undrawn"},
        {.name = "plan search",
         .rounds = search,
         .unit = "ms",
         .goal = {Direction::atMost, 50},
         .detail = fmt::format("longest time from a keystroke to the rows found, of {}", kRows)},
        {.name = "plan scroll",
         .rounds = gaps,
         .unit = "ms",
         .goal = {Direction::atMost, 50},
         .detail = fmt::format("longest time without a turn of the event loop while {} photos of 24 megapixels pass "
                               "by; the memory grows by {:.0f} MiB",
                               kRows, static_cast<double>(memory) / kMebibyte)}};
}

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
