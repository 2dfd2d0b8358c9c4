#include <fstream>
#include <stdexcept>

#include <fmt/format.h>

#include "run/Benchmarks.h"
#include "run/Comparison.h"
#include "run/Corpus.h"
#include "run/WorkFolder.h"

namespace vellomar::bench {
namespace {

// Every path on a line of its own.
void writeList(const std::string& path, const std::vector<std::string>& paths) {
    std::ofstream list(path);
    for (const auto& line : paths)
        list << line << '\n';
    list.close();
    if (!list) throw std::runtime_error("cannot write " + path);
}

Result comparedWithFloor(std::string name, const std::vector<double>& ratios, double atMost, std::string detail) {
    return {.name = std::move(name),
            .rounds = ratios,
            .unit = "x",
            .goal = {Direction::atMost, atMost},
            .detail = std::move(detail)};
}

// What a request to the decoder costs beyond the reading itself, in microseconds a file. Over files of one byte, so
// that the difference is not lost in what reading costs.
Result requestCost(const Rounds& rounds) {
    std::vector<double> microseconds;
    for (std::size_t i = 0; i < rounds.floor.size(); ++i)
        microseconds.push_back((rounds.engine[i].seconds - rounds.floor[i].seconds) * 1e6 /
                               static_cast<double>(rounds.engine[i].files));
    return {.name = "decoder-request",
            .rounds = microseconds,
            .unit = "us/file",
            .goal = {Direction::atMost, 60},
            .detail = timesText(rounds)};
}

}  // namespace

std::vector<Result> benchmarkMetadata(const Arguments& arguments) {
    const WorkFolder work(arguments.keepsFolders);
    const auto list = work / "list";
    writeList(list, makeTaggedPhotos(work.path(), scaled(arguments, 1'000, 200)));
    const auto bareExifTool = [&] { return runProgram("floor_exiftool", {list}); };
    const auto batches = [&] { return runProgram("engine_task", {"exiftool", list}); };
    static_cast<void>(bareExifTool());  // warms the page cache
    const auto rounds = compare(arguments.rounds, bareExifTool, batches);
    return {comparedWithFloor("metadata-exiftool", timeRatios(rounds), 1.05, timesText(rounds))};
}

std::vector<Result> benchmarkReading(const Arguments& arguments) {
    const WorkFolder work(arguments.keepsFolders);
    const auto list = work / "list";
    writeList(list, makeTaggedPhotos(work.path(), scaled(arguments, 5'000, 500)));
    const auto bareExif = [&] { return runProgram("floor_exif", {list}); };
    const auto byDecoder = [&] { return runProgram("engine_task", {"read", list}); };
    static_cast<void>(bareExif());  // warms the page cache
    const auto rounds = compare(arguments.rounds, bareExif, byDecoder);
    return {comparedWithFloor("metadata-reading", timeRatios(rounds), 1.5, timesText(rounds))};
}

std::vector<Result> benchmarkRequests(const Arguments& arguments) {
    const WorkFolder work(arguments.keepsFolders);
    const auto list = work / "list";
    writeList(list, makePhotos(work.path(), scaled(arguments, 20'000, 2'000), 1));
    const auto inProcess = [&] { return runProgram("engine_task", {"ask-here", list}); };
    const auto byDecoder = [&] { return runProgram("engine_task", {"ask", list}); };
    static_cast<void>(inProcess());  // warms the page cache
    return {requestCost(compare(arguments.rounds, inProcess, byDecoder))};
}

std::vector<Result> benchmarkPictures(const Arguments& arguments) {
    const WorkFolder work(arguments.keepsFolders);
    const auto list = work / "list";
    writeList(list, makePictures(work.path(), scaled(arguments, 20, 3)));
    const auto bareDecoding = [&] { return runProgram("floor_pixels", {list}); };
    const auto hashes = [&] { return runProgram("engine_task", {"hash-pictures", list}); };
    static_cast<void>(bareDecoding());  // warms the page cache
    const auto rounds = compare(arguments.rounds, bareDecoding, hashes);
    return {comparedWithFloor("perceptual-hash", timeRatios(rounds), 1.1, timesText(rounds))};
}

}  // namespace vellomar::bench
