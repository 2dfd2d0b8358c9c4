#pragma once

#include <string_view>
#include <vector>

namespace vellomar {

// The folder names of a relative path, outermost first: split at "/" and at "\", as old backups carry either. Empty
// names are left out. The results are parts of `relativeFolder`. Pure; any thread.
[[nodiscard]] std::vector<std::string_view> folderSegments(std::string_view relativeFolder);

}  // namespace vellomar
