#pragma once

#include <cstdint>

namespace vellomar {

// What a run over given sources will be about.
struct RunEstimate {
    std::int64_t fileCount = 0;   // files that lie there, whichever of them the run will keep
    std::int64_t totalBytes = 0;  // of all these files
    double estimatedSeconds = 0;

    bool operator==(const RunEstimate&) const = default;
};

}  // namespace vellomar
