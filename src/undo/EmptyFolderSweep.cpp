#include "undo/EmptyFolderSweep.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/FolderWalk.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

struct FoundFolder {
    std::size_t length = 0;  // characters of the path
    std::string path;
};

std::vector<FoundFolder> foldersBelow(FileSystem& fileSystem, const std::string& root) {
    std::vector<FoundFolder> folders;
    auto walk = FolderWalk::open(fileSystem, root);
    if (!walk) return folders;
    while (const auto entry = walk->next()) {
        if (entry->type != FileType::directory) continue;
        auto path = entry->path();
        folders.push_back({characterCount(path), std::move(path)});
    }
    return folders;
}

// The path of anything that lies in `folder`; nothing for a folder that is empty or cannot be listed.
std::optional<std::string> somethingIn(FileSystem& fileSystem, const std::string& folder) {
    const auto directory = fileSystem.openDirectory(folder, false);
    if (!directory) return std::nullopt;
    const auto entry = (*directory)->next();
    if (!entry || !*entry) return std::nullopt;
    return joinPath(folder, (*entry)->name);
}

}  // namespace

void removeEmptyDirectories(FileSystem& fileSystem, const std::string& root) {
    if (!root.starts_with('/')) return;
    auto folders = foldersBelow(fileSystem, root);
    std::ranges::stable_sort(folders, std::greater<>(), &FoundFolder::length);
    for (const auto& folder : folders)
        if (!somethingIn(fileSystem, folder.path)) static_cast<void>(fileSystem.removeDirectory(folder.path));
}

EmptyFolderSweep::EmptyFolderSweep(FileSystem& fileSystem, const std::string& root)
    : fileSystem_(fileSystem), root_(withoutTrailingSlashes(root)) {}

void EmptyFolderSweep::sweep(const std::vector<std::string>& leftFolders) {
    const bool isFirst = sweeps_++ == 0;
    const auto isSwept = [&](const std::string& folder) { return sweepUpwardsFrom(folder); };
    if (isFirst || !std::ranges::all_of(leftFolders, isSwept)) removeEmptyDirectories(fileSystem_, root_);
}

void EmptyFolderSweep::finish() {
    if (sweeps_ > 1) removeEmptyDirectories(fileSystem_, root_);
}

bool EmptyFolderSweep::covers(const std::string& path) const {
    return isWithin(path, root_);
}

bool EmptyFolderSweep::sweepUpwardsFrom(const std::string& folder) {
    if (!isPlainlyWithinRoot(folder)) return false;
    for (auto path = folder; path.size() > root_.size(); path = parentPath(path)) {
        if (holdsSomething(path)) return true;
        if (isReachedBySymlink(path)) return false;
        const auto removed = fileSystem_.removeDirectory(path);
        // What was never made, or is gone, leaves a parent to be looked at.
        if (!removed && !isSystemError(removed.error(), ENOENT)) return true;
    }
    return true;
}

// Most folders are left many times before they are empty, and looking at one name costs less than a listing.
bool EmptyFolderSweep::holdsSomething(const std::string& folder) {
    const auto seen = seenIn_.find(folder);
    if (seen != seenIn_.end() && somethingStandsAt(fileSystem_, seen->second)) return true;
    auto found = somethingIn(fileSystem_, folder);
    if (!found) return false;
    seenIn_.insert_or_assign(folder, *std::move(found));
    return true;
}

// No name below the root is empty, hidden, "." or "..".
bool EmptyFolderSweep::isPlainlyWithinRoot(const std::string& folder) const {
    if (!covers(folder)) return false;
    auto names = std::string_view(folder).substr(root_.size());
    if (!root_.ends_with('/') && !names.empty()) names.remove_prefix(1);
    while (!names.empty()) {
        const auto end = std::min(names.find('/'), names.size());
        if (end == 0 || names.front() == '.' || end + 1 == names.size()) return false;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return true;
}

bool EmptyFolderSweep::isReachedBySymlink(std::string path) const {
    for (; path.size() > root_.size(); path = parentPath(path)) {
        const auto status = fileSystem_.status(path);
        if (status && status->type == FileType::symlink) return true;
    }
    return false;
}

}  // namespace vellomar
