#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"

namespace vellomar {

// The folders that several walks have entered between them.
class EnteredFolders {
public:
    // False if one of them has entered it before.
    bool enter(const FileIdentity& folder) { return folders_.emplace(folder.device, folder.inode).second; }

private:
    std::set<std::pair<std::uint64_t, std::uint64_t>> folders_;
};

struct FolderWalkOptions {
    bool withHiddenNames = false;
    // Of walks that share this, one alone tells what lies straight in a folder, by whatever path they come to it. Must
    // outlive them.
    EnteredFolders* entered = nullptr;
};

// Goes through all that lies below one folder, entry by entry. Names that begin with a dot are passed over unless asked
// for, folders of such names with all in them; symlinks are told but never followed; a folder that holds itself is
// entered once. An error below the top passes in silence: what cannot be listed or looked at is left out. A folder's
// files come before what lies in its subfolders; otherwise the order is the file system's. Holds one open folder, and
// the names of the folders still to be entered.
class FolderWalk {
public:
    struct Entry {
        std::string_view folder;  // path of the folder it lies in; valid, like `name`, until the next call of next()
        const char* name;
        FileType type;

        [[nodiscard]] std::string path() const;
    };

    // Fails if `folder` is none that can be listed. A symlink to one will do. The walk ends behind the call to the
    // disk that is under way when it is asked to stop.
    [[nodiscard]] static Expected<FolderWalk> open(FileSystem& fileSystem, const std::string& folder,
                                                   std::stop_token stop = {}, const FolderWalkOptions& options = {});

    // Nothing at the end.
    [[nodiscard]] std::optional<Entry> next();

    // Of the entry that next() told last.
    [[nodiscard]] Expected<FileStatus> statusOf(const Entry& entry);

private:
    // The folders from the top down to one, as a chain that siblings share.
    struct Lineage {
        FileIdentity identity;
        std::shared_ptr<const Lineage> parent;
    };
    struct Pending {
        std::string path;
        std::shared_ptr<const Lineage> parent;
    };

    FolderWalk(FileSystem& fileSystem, std::string path, std::unique_ptr<Directory> directory,
               std::shared_ptr<const Lineage> lineage, std::stop_token stop, const FolderWalkOptions& options);

    // False when no folder is left.
    [[nodiscard]] bool enterNextFolder();
    [[nodiscard]] bool enter(Pending folder);
    [[nodiscard]] bool mayEnter(const FileIdentity& folder, const Lineage* parent) const;
    [[nodiscard]] std::optional<FileType> typeOf(const Directory::Entry& entry);

    FileSystem& fileSystem_;
    std::string path_;  // of the folder under way
    std::unique_ptr<Directory> directory_;
    std::shared_ptr<const Lineage> lineage_;
    std::stop_token stop_;
    FolderWalkOptions options_;
    std::vector<Pending> found_;    // subfolders of the folder under way, in its order
    std::vector<Pending> pending_;  // to be entered, the next one last
};

}  // namespace vellomar
