#include "platform/FileSystem.h"

#include <cerrno>

#include "platform/Path.h"

namespace vellomar {
namespace {

bool isDirectory(FileSystem& fileSystem, const std::string& path) {
    const auto status = fileSystem.statusFollowingLinks(path);
    return status && status->type == FileType::directory;
}

Expected<void> makeOneDirectory(FileSystem& fileSystem, const std::string& path, const std::string& parent) {
    if (auto made = fileSystem.makeDirectory(path); !made) {
        // Somebody else may have made it since we looked.
        if (isSystemError(made.error(), EEXIST) && isDirectory(fileSystem, path)) return {};
        return made;
    }
    return fileSystem.syncDirectory(parent);
}

}  // namespace

bool isUnchanged(const FileStatus& before, const FileStatus& now) {
    return before.identity == now.identity && before.size == now.size && before.modified == now.modified;
}

bool somethingStandsAt(FileSystem& fileSystem, const std::string& path) {
    return fileSystem.status(path).has_value();
}

bool isSameFile(FileSystem& fileSystem, const std::string& first, const std::string& second) {
    const auto one = fileSystem.statusFollowingLinks(first);
    const auto other = fileSystem.statusFollowingLinks(second);
    return one && other && one->identity == other->identity;
}

Expected<void> makeDirectories(FileSystem& fileSystem, const std::string& path) {
    if (isDirectory(fileSystem, path)) return {};
    const std::string parent(parentPath(path));
    if (!parent.empty() && parent != path) {
        if (auto made = makeDirectories(fileSystem, parent); !made) return made;
    }
    return makeOneDirectory(fileSystem, path, parent);
}

}  // namespace vellomar
