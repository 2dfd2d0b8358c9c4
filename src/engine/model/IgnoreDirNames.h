#pragma once

#include <string_view>

namespace vellomar {

// Whether a folder of this name says nothing about its files: camera folders, catch-alls, work folders.
// `lowercasedName` is the folder's own name in lower case.
[[nodiscard]] bool isIgnoredDirName(std::string_view lowercasedName);

}  // namespace vellomar
