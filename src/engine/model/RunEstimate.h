#pragma once

#include <cstdint>

namespace vellomar {

// What a run over given sources will be about.
struct RunEstimate {
    int fileCount = 0;
    std::int64_t totalBytes = 0;
    double estimatedSeconds = 0;

    bool operator==(const RunEstimate&) const = default;
};

}  // namespace vellomar
