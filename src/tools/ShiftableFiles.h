// Which files a shift of dates is about: all images and videos below some folders, hidden files and what lies in hidden
// folders included. Symlinks are not followed, but for a folder that is named itself. Each call goes through the whole
// tree and may take minutes; any thread.
//
// Of folders that lie in each other, or are one by two paths, every file counts once. It is its dates that are changed:
// a file that came twice would be shifted twice. What tells is the folder in which a name stands and not the file, as
// ExifTool puts a new file in the place of the old one: of two names of one file (hard links) each has its own shift.
#pragma once

#include <cstddef>
#include <map>
#include <stop_token>
#include <string>
#include <vector>

#include "platform/Error.h"
#include "platform/FileSystem.h"

namespace vellomar {

struct ShiftableCount {
    std::size_t files = 0;
    // The folders that cannot be listed, and why; nothing in them is counted. A path that is not absolute is one, with
    // EINVAL: what it led to would depend on where the program was started.
    std::map<std::string, Error> refused;
};

// Counts them, without keeping a list. What it has when it is asked to stop is of no use.
[[nodiscard]] ShiftableCount countShiftableFiles(FileSystem& fileSystem, const std::vector<std::string>& folders,
                                                 const std::stop_token& stop = {});

// Their paths, in the order of the walk: folder by folder. Folders that cannot be listed contribute nothing.
[[nodiscard]] std::vector<std::string> collectShiftableFiles(FileSystem& fileSystem,
                                                             const std::vector<std::string>& folders,
                                                             const std::stop_token& stop = {});

}  // namespace vellomar
