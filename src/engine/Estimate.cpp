#include "engine/Estimate.h"

#include <limits>

#include "engine/model/JunkFiles.h"
#include "platform/FolderWalk.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

// What each piece of work costs a file, in seconds.
constexpr double kBaseCost = 0.05;
constexpr double kMetadataCost = 0.08;
constexpr double kHashCost = 0.03;
constexpr double kNameDatesCost = 0.005;
constexpr double kMonthWordsCost = 0.002;

constexpr double kCopiedBytesPerSecond = 120'000'000;

double secondsPerFile(const Options& options) {
    double seconds = kBaseCost;
    if (options.useExifToolForImages || options.useExifToolForVideo) seconds += kMetadataCost;
    if (options.computeHashForDuplicates) seconds += kHashCost;
    if (options.parseNameDates) seconds += kNameDatesCost;
    if (options.parseMonthWords) seconds += kMonthWordsCost;
    return seconds;
}

bool isJunk(const char* name) {
    const auto lowercasedName = lowercased(name);
    return isJunkFile(lowercasedName, pathExtension(lowercasedName));
}

// Files may claim any size (those with holes), so that their sum may be more than can be counted.
std::int64_t cappedSum(std::int64_t sum, std::int64_t size) {
    std::int64_t result = 0;
    return __builtin_add_overflow(sum, size, &result) ? std::numeric_limits<std::int64_t>::max() : result;
}

void count(FolderWalk& walk, RunEstimate& estimate) {
    while (const auto entry = walk.next()) {
        if (entry->type != FileType::regular || isJunk(entry->name)) continue;
        const auto status = walk.statusOf(*entry);
        if (!status || status->type != FileType::regular) continue;
        ++estimate.fileCount;
        estimate.totalBytes = cappedSum(estimate.totalBytes, status->size);
    }
}

}  // namespace

RunEstimate estimateRun(FileSystem& fileSystem, const std::vector<std::string>& sources, const Options& options,
                        const std::stop_token& abandon) {
    RunEstimate estimate;
    for (const auto& source : sources) {
        if (abandon.stop_requested()) break;
        if (auto walk = FolderWalk::open(fileSystem, source, abandon)) count(*walk, estimate);
    }
    estimate.estimatedSeconds = estimatedSeconds(estimate.fileCount, estimate.totalBytes, options);
    return estimate;
}

double estimatedSeconds(std::int64_t fileCount, std::int64_t totalBytes, const Options& options) {
    const double perFile = static_cast<double>(fileCount) * secondsPerFile(options);
    if (options.dryRun) return perFile;
    return perFile + static_cast<double>(totalBytes) / kCopiedBytesPerSecond;
}

}  // namespace vellomar
