#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/FileSystem.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// What became of a manifest's entries; the sum is their number.
struct UndoCounters {
    std::size_t reversed = 0;
    std::size_t skipped = 0;  // the file is gone, or no longer what the run left
    std::size_t failed = 0;

    bool operator==(const UndoCounters&) const = default;
};

// What an undo tells on its way, on its own thread.
struct UndoReports {
    std::function<void(std::string line)> log;
    std::function<void(double fraction)> progress;  // of the entries visited, behind each that was acted on
};

// Takes back what a run did, newest first: removes its copies and moves its moved files back. Returns when all entries
// were visited; nothing stops it, and what fails costs its line and that one entry.
//
// A file whose SHA-256 is no longer that of the entry is left alone, as is one that the entry has a hash of and that
// cannot be read. A file comes back under its old name if that is free, else under a numbered one beside it: nothing
// that stands is ever replaced, and no folder is removed but an empty one below the run's destination. A symlink is
// removed or moved itself. The manifest's file is not touched.
[[nodiscard]] UndoCounters executeUndo(FileSystem& fileSystem, const UndoManifest& manifest,
                                       const UndoReports& reports);

}  // namespace vellomar
