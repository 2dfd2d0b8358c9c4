#pragma once

#include <string>
#include <vector>

namespace vellomar {

// What a quick look at the sources and the destination found before the run.
struct IntegrityReport {
    std::vector<std::string> unreadableFiles;   // full paths of sampled files that cannot be read
    std::vector<std::string> noDateSignal;      // always empty: nothing fills it, the interface reads it
    std::vector<std::string> suspectedCorrupt;  // names of sampled files of size zero
    bool readOnlySource = false;                // the source volume is read-only and the run would move
    bool insufficientSpace = false;             // the destination has fewer free bytes than the scan found
    int totalScanned = 0;                       // files scanned, not files sampled

    bool operator==(const IntegrityReport&) const = default;
};

}  // namespace vellomar
