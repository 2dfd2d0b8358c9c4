#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"

namespace vellomar {

// Removes every folder below `root` that has nothing in it, or only such folders: the longest path first, so that
// children go before their parents. `root` itself stays. So do hidden folders with all below them, and folders that
// hold anything at all, be it a hidden file; symlinks are no folders and lead nowhere. What cannot be listed counts as
// empty, but nothing is ever removed that is not; what cannot be removed stays, in silence. A `root` that is no
// absolute path has no folders. Any thread.
void removeEmptyDirectories(FileSystem& fileSystem, const std::string& root);

// The same behind each of many changes below one root, at the cost of what changed. The first time goes through the
// whole tree, the next ones only up from the folders that something left, as far as they became empty. What others
// empty meanwhile is found at the end. One thread's.
class EmptyFolderSweep {
public:
    // `fileSystem` must outlive this.
    EmptyFolderSweep(FileSystem& fileSystem, const std::string& root);

    // Leaves no empty folder behind that lay empty at the first call or that a change since the last one emptied or
    // made. `leftFolders` are where files were taken from and what was made in vain, a chain of folders by its
    // innermost. One that is not plainly within the root by its text, or is reached by a symlink, costs a whole walk.
    void sweep(const std::vector<std::string>& leftFolders);

    // Behind the last change: once more through the whole tree, unless that was all that ever happened.
    void finish();

    // Whether `path` is the root or lies below it, by its text.
    [[nodiscard]] bool covers(const std::string& path) const;

private:
    // False where only a whole walk can tell.
    [[nodiscard]] bool sweepUpwardsFrom(const std::string& folder);
    [[nodiscard]] bool holdsSomething(const std::string& folder);
    [[nodiscard]] bool isPlainlyWithinRoot(const std::string& folder) const;
    [[nodiscard]] bool isReachedBySymlink(std::string path) const;

    FileSystem& fileSystem_;
    std::string root_;
    std::size_t sweeps_ = 0;
    std::unordered_map<std::string, std::string> seenIn_;  // by folder: the path of something that lay in it
};

}  // namespace vellomar
