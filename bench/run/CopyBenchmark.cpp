#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <fmt/format.h>
#include <unistd.h>

#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {
namespace fs = std::filesystem;

namespace {

struct CopyPlan {
    std::string name;
    std::size_t fileCount;
    std::uint64_t fileSize;
    double goal;
};

void writeLines(const std::string& path, const std::vector<std::string>& lines) {
    std::ofstream file(path, std::ios::binary);
    file << fmt::format("{}\n", fmt::join(lines, "\n"));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

// What a program says that it copied must stand there, whole and under its final name.
void requireCopies(const std::string& dest, const CopyPlan& plan) {
    std::size_t found = 0;
    for (const auto& entry : fs::recursive_directory_iterator(dest))
        if (entry.path().extension() == ".jpg" && entry.file_size() == plan.fileSize) ++found;
    if (found != plan.fileCount)
        throw std::runtime_error(fmt::format("{} of {} copies stand in {}", found, plan.fileCount, dest));
}

std::vector<Result> benchmarkCopy(const Arguments& arguments, const CopyPlan& plan) {
    const WorkFolder work(arguments.keepsFolders);
    const auto source = work.emptyFolder("source");
    const auto list = work / "list";
    writeLines(list, makePhotos(source, plan.fileCount, plan.fileSize));

    const auto copyBy = [&](const std::string& program, const std::vector<std::string>& words) {
        const auto dest = work.emptyFolder("dest");
        auto allWords = words;
        allWords.push_back(dest);
        ::sync();
        const auto measurement = runProgram(program, allWords);
        requireCopies(dest, plan);
        return measurement;
    };
    const auto floor = [&] { return copyBy("floor_copy", {list}); };
    const auto engine = [&] { return copyBy("engine_task", {"copy", source}); };
    const auto rounds = compare(arguments.rounds, floor, engine);
    return {{.name = plan.name,
             .rounds = timeRatios(rounds),
             .unit = "x",
             .goal = {Direction::atMost, plan.goal},
             .detail = timesText(rounds)}};
}

}  // namespace

std::vector<Result> benchmarkCopyOfPhotos(const Arguments& arguments) {
    return benchmarkCopy(arguments, {"copy", scaled(arguments, 150, 10), 4'000'000, 1.10});
}

std::vector<Result> benchmarkCopyOfSmallFiles(const Arguments& arguments) {
    return benchmarkCopy(arguments, {"copy-small", scaled(arguments, 3'000, 100), 6'000, 1.25});
}

}  // namespace vellomar::bench
