#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Instant.h"

namespace vellomar {

// Final destination paths by the SHA-256 of what goes there, in processing order.
using HashGroups = std::unordered_map<std::string, std::vector<std::string_view>>;

// Paths whose files hold the same bytes. Views of the groups that they were found in.
struct ExactDuplicates {
    std::string_view sha256;
    std::vector<std::string_view> paths;  // two or more; the first is the canonical one, the others are the duplicates

    [[nodiscard]] std::string_view canonical() const { return paths.front(); }
    [[nodiscard]] std::span<const std::string_view> duplicates() const { return std::span(paths).subspan(1); }
};

// The date that was decided for the file at a path; nothing for a path without one.
using DateOfPath = std::function<std::optional<Instant>(std::string_view path)>;

// The groups of two or more paths, by their hash. The paths of a group stand by their dates, the earliest first and
// those without a date before all others; equal dates by the bytes of the path. Thus the result does not depend on the
// order of processing. A path that stands twice in a group is a duplicate of itself. Any thread.
[[nodiscard]] std::vector<ExactDuplicates> findExactDuplicates(const HashGroups& hashGroups, const DateOfPath& dateOf);

}  // namespace vellomar
