#include "naming/FolderSegments.h"

#include <algorithm>

namespace vellomar {

std::vector<std::string_view> folderSegments(std::string_view relativeFolder) {
    std::vector<std::string_view> segments;
    while (!relativeFolder.empty()) {
        const auto end = std::min(relativeFolder.find_first_of("/\\"), relativeFolder.size());
        if (end > 0) segments.push_back(relativeFolder.substr(0, end));
        relativeFolder.remove_prefix(std::min(end + 1, relativeFolder.size()));
    }
    return segments;
}

}  // namespace vellomar
