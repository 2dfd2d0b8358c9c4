#include "platform/FreeName.h"

#include <fmt/format.h>

#include "platform/Path.h"

namespace vellomar {

std::string uniqueDestination(FileSystem& fileSystem, const std::string& path) {
    if (!somethingStandsAt(fileSystem, path)) return path;
    const auto extension = pathExtension(path);
    const std::string dottedExtension = extension.empty() ? "" : fmt::format(".{}", extension);
    const auto withoutExtension = std::string_view(path).substr(0, path.size() - dottedExtension.size());
    for (int number = 1;; ++number) {
        auto candidate = fmt::format("{} ({}){}", withoutExtension, number, dottedExtension);
        if (!somethingStandsAt(fileSystem, candidate)) return candidate;
    }
}

}  // namespace vellomar
