#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <fmt/format.h>

#include "platform/FileDigest.h"
#include "platform/LinuxFileSystem.h"
#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"
#include "undo/ManifestText.h"

namespace vellomar::bench {
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFilesInAFolder = 20;
constexpr std::uint64_t kFileSize = 6'000;
constexpr double kMicro = 1e6;

void writeFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

// Copies that a run left, made anew for each measurement, with the manifest and the list that name them.
class Copies {
public:
    Copies(const Arguments& arguments, std::size_t count) : work_(arguments.keepsFolders), count_(count) {
        const auto paths = make();
        UndoManifest manifest{"2024-06-14T09:41:07", work_ / "source", dest_, {}};
        LinuxFileSystem fileSystem;
        for (const auto& path : paths)
            manifest.appendUndoEntry(
                {UndoEntry::OpType::copy, work_ / "source/photo.jpg", path, sha256OfFile(fileSystem, path), {}});
        writeFile(manifest_, manifestText(manifest));
        // The order in which an undo goes through them.
        writeFile(list_, fmt::format("{}\n", fmt::join(paths.rbegin(), paths.rend(), "\n")));
    }

    [[nodiscard]] Measurement removeBare() {
        static_cast<void>(make());
        return runProgram("floor_undo", {list_});
    }

    [[nodiscard]] Measurement undo() {
        static_cast<void>(make());
        const auto measurement = runProgram("engine_task", {"undo", manifest_});
        if (!fs::is_empty(dest_)) throw std::runtime_error("the undo left something in " + dest_);
        return measurement;
    }

    [[nodiscard]] double microsecondsPerEntry(const Measurement& measurement) const {
        return measurement.seconds / static_cast<double>(count_) * kMicro;
    }

private:
    std::vector<std::string> make() const {
        static_cast<void>(work_.emptyFolder("dest"));
        return makePhotos(dest_, count_, kFileSize, kFilesInAFolder);
    }

    WorkFolder work_;
    std::size_t count_;
    std::string dest_ = work_ / "dest";
    std::string manifest_ = work_ / "manifest.json";
    std::string list_ = work_ / "list";
};

}  // namespace

std::vector<Result> benchmarkUndo(const Arguments& arguments) {
    constexpr std::size_t kLargeBySmall = 10;
    const auto count = scaled(arguments, 20'000, 1'000);
    Copies large(arguments, count);
    Copies small(arguments, count / kLargeBySmall);
    std::vector<double> growth;
    std::vector<double> ofSmall;
    const auto undoBoth = [&] {
        const auto undone = large.undo();
        ofSmall.push_back(small.microsecondsPerEntry(small.undo()));
        growth.push_back(large.microsecondsPerEntry(undone) / ofSmall.back());
        return undone;
    };
    const auto rounds = compare(
        arguments.rounds, [&] { return large.removeBare(); }, undoBoth);
    return {{.name = "undo",
             .rounds = timeRatios(rounds),
             .unit = "x",
             .goal = {Direction::atMost, 2},
             .detail = timesText(rounds)},
            {.name = "undo-growth",
             .rounds = growth,
             .unit = "x",
             .goal = {Direction::atMost, 1.2},
             .detail = fmt::format("{} entries: {:.1f} us/entry", count / kLargeBySmall, medianOf(ofSmall))}};
}

}  // namespace vellomar::bench
