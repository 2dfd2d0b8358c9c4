#pragma once

#include <string_view>

#include "platform/FileSystem.h"

namespace vellomar {

// That a run brought a file under a name, read it back and found in it the bytes that were meant, and how the file
// looked when all was done with it.
struct PlacementMark {
    std::string_view sha256;  // of the source, and of the file when it was read back
    FileStatus status;        // behind everything that changed the file on purpose
};

}  // namespace vellomar
