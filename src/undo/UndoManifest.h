#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Instant.h"

namespace vellomar {

// What a run did to one file. Never changed once made.
struct UndoEntry {
    enum class OpType { copy, move };

    OpType op = OpType::copy;
    std::string source;                 // absolute path that the file had before the run
    std::string destination;            // absolute path at which the run put it
    std::optional<std::string> sha256;  // of the file at `destination`; none where none was asked for or to be had
    Instant timestamp;                  // when the entry was made; kept in whole seconds

    bool operator==(const UndoEntry&) const = default;
};

// What makes a run reversible: one entry for every file that it copied or moved, in the order in which the transfers
// finished.
struct UndoManifest {
    std::string runID;       // start of the run in local time, "yyyy-MM-dd'T'HH:mm:ss"
    std::string sourceRoot;  // paths of all source folders, joined by "|" without escaping: for reading, not splitting
    std::string destRoot;
    std::vector<UndoEntry> entries;

    void appendUndoEntry(UndoEntry entry) { entries.push_back(std::move(entry)); }

    bool operator==(const UndoManifest&) const = default;
};

}  // namespace vellomar
