#pragma once

#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

namespace vellomar {

// Names that begin with a dot.
enum class HiddenNames { passedOver, included };

// Goes through all that lies below one folder, entry by entry. Hidden names are passed over unless they are asked for,
// folders of such names with all in them; symlinks are told but never followed; a folder that holds itself is entered
// once. An error below the top passes in silence: what cannot be listed or looked at is left out. A folder's files come
// before what lies in its subfolders; otherwise the order is the file system's. Holds one open folder, and the names of
// the folders still to be entered.
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
                                                   std::stop_token stop = {},
                                                   HiddenNames hidden = HiddenNames::passedOver);

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
               std::shared_ptr<const Lineage> lineage, std::stop_token stop, HiddenNames hidden);

    // False when no folder is left.
    [[nodiscard]] bool enterNextFolder();
    [[nodiscard]] bool enter(Pending folder);
    [[nodiscard]] std::optional<FileType> typeOf(const Directory::Entry& entry);

    FileSystem& fileSystem_;
    std::string path_;  // of the folder under way
    std::unique_ptr<Directory> directory_;
    std::shared_ptr<const Lineage> lineage_;
    std::stop_token stop_;
    HiddenNames hidden_;
    std::vector<Pending> found_;    // subfolders of the folder under way, in its order
    std::vector<Pending> pending_;  // to be entered, the next one last
};

}  // namespace vellomar
