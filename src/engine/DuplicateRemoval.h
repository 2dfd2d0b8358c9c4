#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "duplicates/ExactDuplicates.h"
#include "engine/RunContext.h"
#include "platform/Error.h"
#include "platform/FileSystem.h"

namespace vellomar {

// Says of the duplicates of a run which may be taken away from the destination, so that the last copy of a photo never
// goes. A final destination is no proof: an older file may stand there, or nothing, or the very file that is to be
// kept, by another path. All is looked at anew for each duplicate, as the one before it may have changed the disk. On
// the run's thread.
class DuplicateRemoval {
public:
    // `dest` is the destination folder; all must outlive this.
    DuplicateRemoval(FileSystem& fileSystem, const std::string& dest, const RunState& state)
        : fileSystem_(fileSystem), dest_(dest), state_(state) {}

    // Whether there is anything to take away: false if `path` leads nowhere. What cannot be looked at counts as there.
    [[nodiscard]] bool existsAt(const std::string& path) const;

    // Success if the file at `path` may go as a duplicate in `group`: it is a regular file of its own, plainly below
    // the destination, it holds the bytes of the group, and so does another file, which is the canonical one. It is no
    // original of the run. Else the reason, for the log.
    [[nodiscard]] Expected<void> check(const std::string& path, const ExactDuplicates& group);

private:
    [[nodiscard]] Expected<void> checkPlace(const std::string& path) const;
    [[nodiscard]] Expected<FileStatus> statusOfFile(const std::string& path) const;
    [[nodiscard]] Expected<FileStatus> statusOfCanonical(const std::string& path) const;
    [[nodiscard]] bool wasPlaced(const std::string& path, const FileStatus& status, std::string_view sha256) const;
    [[nodiscard]] bool holds(const std::string& path, const FileStatus& status, std::string_view sha256) const;
    [[nodiscard]] bool isOriginal(const FileIdentity& file, const ExactDuplicates& group);
    [[nodiscard]] const std::vector<FileIdentity>& originalsOf(const ExactDuplicates& group);

    FileSystem& fileSystem_;
    const std::string& dest_;
    const RunState& state_;
    std::map<std::string_view, std::vector<FileIdentity>> originalsByHash_;
};

}  // namespace vellomar
