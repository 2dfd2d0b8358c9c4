#include "duplicates/ExactDuplicates.h"

#include <algorithm>
#include <utility>

namespace vellomar {
namespace {

std::vector<std::string_view> inOrder(const std::vector<std::string_view>& paths, const DateOfPath& dateOf) {
    // No date compares as less than any.
    std::vector<std::pair<std::optional<Instant>, std::string_view>> dated;
    dated.reserve(paths.size());
    for (const auto path : paths)
        dated.emplace_back(dateOf(path), path);
    std::ranges::sort(dated);
    std::vector<std::string_view> sorted;
    sorted.reserve(dated.size());
    for (const auto& entry : dated)
        sorted.push_back(entry.second);
    return sorted;
}

}  // namespace

std::vector<ExactDuplicates> findExactDuplicates(const HashGroups& hashGroups, const DateOfPath& dateOf) {
    std::vector<ExactDuplicates> found;
    for (const auto& [sha256, paths] : hashGroups)
        if (paths.size() >= 2) found.push_back({sha256, inOrder(paths, dateOf)});
    std::ranges::sort(found, {}, &ExactDuplicates::sha256);
    return found;
}

}  // namespace vellomar
