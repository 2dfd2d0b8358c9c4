#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace vellomar {

// The statistics of one run: of what was decided, in dry and real runs alike, not of what succeeded.
struct LibraryStats {
    int totalFiles = 0;           // files for which a decision was made
    std::int64_t totalBytes = 0;  // sum of their sizes, as the scan read them
    std::map<std::string, int> byYear;
    std::map<std::string, int> byCamera;             // unknown cameras are not counted
    std::map<std::string, int> byExtension;          // lower case; files without one are not counted
    std::map<std::string, int> dateSourceBreakdown;  // by the label of the chosen date, suffixes included
    int duplicateCount = 0;                          // stays 0: duplicates are published as groups and paths instead
    int nearDupCount = 0;                            // stays 0, likewise

    bool operator==(const LibraryStats&) const = default;
};

}  // namespace vellomar
