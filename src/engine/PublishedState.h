#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "engine/model/DuplicateGroup.h"
#include "engine/model/IntegrityReport.h"
#include "engine/model/LibraryStats.h"
#include "engine/model/MediaBreakdown.h"
#include "engine/model/PlanRow.h"

namespace vellomar {

// Both published lists hold the newest lines and the first rows of a run, however large it is.
inline constexpr std::size_t kMostLogLines = 5'000;
inline constexpr std::size_t kMostPreviewRows = 5'000;

// What the engine lets the world see of a run or an undo. Changed on the main actor alone.
struct PublishedState {
    bool isRunning = false;          // a run or an undo is under way
    bool previewRowsCapped = false;  // rows were left out of previewRows
    int totalFilesScanned = 0;       // files that the scan kept
    double progress = 0;             // 0 to 1
    std::string statusText;          // one line
    std::deque<std::string> logLines;
    std::vector<PlanRow> previewRows;
    MediaBreakdown mediaBreakdown;
    std::set<std::string> duplicateDestPaths;
    std::vector<DuplicateGroup> duplicateGroups;
    LibraryStats libraryStats;  // complete only after the last file
    IntegrityReport integrityReport;
    int verifyFailures = 0;
    int rawJpegPairs = 0;
    std::int64_t bytesProcessed = 0;  // sum of the sizes of the files handled so far
    double bytesPerSecond = 0;
};

// The members of PublishedState, to tell an observer which of them changed.
enum class PublishedField {
    isRunning,
    previewRowsCapped,
    totalFilesScanned,
    progress,
    statusText,
    logLines,
    previewRows,
    mediaBreakdown,
    duplicateDestPaths,
    duplicateGroups,
    libraryStats,
    integrityReport,
    verifyFailures,
    rawJpegPairs,
    bytesProcessed,
    bytesPerSecond,
};

}  // namespace vellomar
