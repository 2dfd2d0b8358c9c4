#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/model/LibraryStats.h"

namespace vellomar {

// What the closing block of a run is made of.
struct RunSummary {
    std::size_t processed = 0;  // files that the run got to
    std::size_t total = 0;      // files that the scan kept
    std::int64_t bytes = 0;     // sum of the sizes of the processed files
    double elapsed = 0;         // seconds since the end of the scan
    bool storageIsNetwork = false;
    std::size_t duplicates = 0;
    int verifyFailures = 0;
};

// The block, line by line. Equal counts are listed in the order of the alphabet.
[[nodiscard]] std::vector<std::string> summaryLines(const RunSummary& summary, const LibraryStats& stats);

// What the completion notification says.
[[nodiscard]] std::string notificationTitle(bool dryRun);
[[nodiscard]] std::string notificationBody(std::size_t fileCount);

}  // namespace vellomar
