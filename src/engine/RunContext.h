#pragma once

#include <cstdint>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "dates/DateCandidate.h"
#include "duplicates/ExactDuplicates.h"
#include "duplicates/PerceptualBuckets.h"
#include "engine/EnginePort.h"
#include "engine/EngineServices.h"
#include "engine/PlacementMark.h"
#include "engine/RunLog.h"
#include "engine/model/LibraryStats.h"
#include "engine/model/Options.h"
#include "engine/model/TaggedFile.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// What a run is asked to do.
struct RunRequest {
    std::vector<std::string> sources;
    std::string dest;
    Options options;
};

// What every stage of a run works with. Fixed for the run.
struct RunContext {
    const RunRequest& request;
    const EngineServices& services;
    EnginePort& port;
    RunLog& log;
    std::stop_token stop;  // asked to stop: the run's task is cancelled

    [[nodiscard]] const Options& options() const { return request.options; }
    [[nodiscard]] bool isCancelled() const { return stop.stop_requested(); }
    void appendLog(std::string line) const { log.appendLog(std::move(line)); }
    void publishStatus(std::string text) const {
        port.hop([text = std::move(text)](MainActorState& main) { main.published.setStatus(text); });
    }
};

// What a run keeps of a file under its final destination; of the last one where two files of a dry run share it.
struct PlacedFile {
    Instant fileDate;                         // the date that was decided
    std::vector<std::string> meaningfulTail;  // the folder names that say something, outermost first
    const TaggedFile* source = nullptr;       // what was to go there; of RunState::files
    // Only where duplicates may be removed, of files that may be some; a pointer, as most files have none.
    std::unique_ptr<const PlacementMark> mark;
};

// What a run knows, growing from stage to stage. The run's thread alone touches it. Everything here may exist once per
// file of a large library.
struct RunState {
    std::vector<TaggedFile> files;   // in scan order
    std::int64_t bytesMeasured = 0;  // sizes that the scan read, of files that it dropped afterwards too
    std::unordered_map<std::string, std::vector<std::string>> sidecarsByPath;
    std::unordered_map<std::string, DateCandidate> exifDates;  // by path, from the metadata batches
    std::unordered_map<std::string, std::string> exifCameras;  // likewise

    // Final destinations taken so far, with what is known of each. One table, as every look into it misses the caches.
    std::unordered_map<std::string, PlacedFile> usedDestPaths;
    // By SHA-256: final destinations in processing order, views of the table above.
    HashGroups hashGroups;
    // By perceptual hash: views of the paths of `files` and of the table above.
    PerceptualBuckets perceptualBuckets;

    UndoManifest manifest;
    LibraryStats libraryStats;
    std::chrono::steady_clock::time_point startTime;  // behind the scan
    std::int64_t byteSum = 0;                         // sizes of the files handled so far
    std::size_t processed = 0;                        // files that the loop got to
    bool wasCancelled = false;
};

}  // namespace vellomar
