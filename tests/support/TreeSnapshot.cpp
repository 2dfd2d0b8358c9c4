#include "support/TreeSnapshot.h"

#include <cerrno>
#include <system_error>

#include <sys/stat.h>

#include "support/TemporaryFolder.h"

namespace vellomar::testing {
namespace fs = std::filesystem;

namespace {

TreeNode nodeAt(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) throw std::system_error(errno, std::generic_category(), path.string());
    constexpr mode_t kPermissionBits = 07777;
    constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
    TreeNode node;
    node.type = fs::symlink_status(path).type();
    if (node.type == fs::file_type::symlink)
        node.content = fs::read_symlink(path).string();
    else
        node.mode = status.st_mode & kPermissionBits;
    if (node.type == fs::file_type::regular) node.content = contentOf(path.string());
    if (node.type != fs::file_type::directory)
        node.modified = status.st_mtim.tv_sec * kNanosecondsInASecond + status.st_mtim.tv_nsec;
    return node;
}

std::string differenceOf(const TreeNode& before, const TreeNode& after) {
    if (before.type != after.type) return "type";
    if (before.content != after.content) return "content";
    if (before.mode != after.mode) return "mode";
    return "modification date";
}

}  // namespace

TreeSnapshot snapshotOf(const std::string& folder) {
    TreeSnapshot snapshot;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        snapshot.emplace(entry.path().string().substr(folder.size() + 1), nodeAt(entry.path()));
    return snapshot;
}

std::vector<std::string> differences(const TreeSnapshot& before, const TreeSnapshot& after) {
    std::vector<std::string> lines;
    for (const auto& [path, node] : before) {
        const auto now = after.find(path);
        if (now == after.end())
            lines.push_back("gone: " + path);
        else if (node != now->second)
            lines.push_back("other " + differenceOf(node, now->second) + ": " + path);
    }
    for (const auto& [path, node] : after)
        if (!before.contains(path)) lines.push_back("new: " + path);
    return lines;
}

}  // namespace vellomar::testing
