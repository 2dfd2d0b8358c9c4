#pragma once

#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/FileSizes.h"
#include "engine/model/MediaBreakdown.h"
#include "engine/model/Options.h"
#include "engine/model/TaggedFile.h"
#include "platform/FileSystem.h"

namespace vellomar {

// The run's file list and what came with it.
struct ScanResult {
    std::vector<TaggedFile> files;  // in walk order, source by source; a source given twice appears twice
    FileSizes fileSizes;
    MediaBreakdown breakdown;
};

// What the scan tells while it works; both are called on its thread.
struct ScanReports {
    std::function<void(std::size_t count)> filesFound;  // every 500 kept files
    std::function<void(std::string line)> log;
};

// Walks `sources` one after the other and keeps the files that `options` ask for: no junk, no hidden names, nothing
// that `skipPaths` names, and of images, videos and the rest those that are switched on. On network storage it goes by
// the names alone, so as not to pay a round trip per entry: what has no extension, or one of 11 characters or more, is
// taken for a folder. A source that cannot be listed costs a line in the log. Runs to its end. Any thread.
[[nodiscard]] ScanResult scanSources(FileSystem& fileSystem, const std::vector<std::string>& sources,
                                     const Options& options, const std::unordered_set<std::string>& skipPaths,
                                     const ScanReports& reports);

}  // namespace vellomar
