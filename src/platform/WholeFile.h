#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace vellomar {

// The whole content of a small file, for texts that the program itself keeps. A symlink is followed. Any thread.
[[nodiscard]] Expected<std::string> readWholeFile(FileSystem& fileSystem, const std::string& path);

}  // namespace vellomar
