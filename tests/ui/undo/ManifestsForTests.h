#pragma once

#include <string>

#include "undo/UndoManifest.h"

namespace vellomar::testing {

// A run that moved and copied so many files.
inline UndoManifest manifestOf(const std::string& runID, int moved, int copied) {
    UndoManifest manifest{runID, "/cards/DCIM", "/photos/library", {}};
    for (int i = 0; i < moved + copied; ++i) {
        const auto name = "IMG_" + std::to_string(i) + ".JPG";
        manifest.appendUndoEntry({i < moved ? UndoEntry::OpType::move : UndoEntry::OpType::copy, "/cards/DCIM/" + name,
                                  "/photos/library/" + name, std::nullopt, Instant{}});
    }
    return manifest;
}

}  // namespace vellomar::testing
