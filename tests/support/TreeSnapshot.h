#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vellomar::testing {

// One file, folder or symlink, with all of it that must survive being moved about.
struct TreeNode {
    std::filesystem::file_type type = std::filesystem::file_type::none;
    std::string content;        // bytes of a file, target of a symlink
    std::uint32_t mode = 0;     // permission bits; a symlink has none
    std::int64_t modified = 0;  // nanoseconds since 1970; not of folders, which change with what is in them

    bool operator==(const TreeNode&) const = default;
};

// All that lies below a folder, by path relative to it.
using TreeSnapshot = std::map<std::string, TreeNode>;

[[nodiscard]] TreeSnapshot snapshotOf(const std::string& folder);

// What changed from `before` to `after`, one line a node: "gone: PATH", "new: PATH" or "other PROPERTY: PATH".
[[nodiscard]] std::vector<std::string> differences(const TreeSnapshot& before, const TreeSnapshot& after);

}  // namespace vellomar::testing
