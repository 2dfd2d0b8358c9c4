#include "platform/FileMove.h"

#include <cerrno>
#include <string_view>

#include "platform/FileCopy.h"
#include "platform/FreeName.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr std::size_t kLongestName = 255;  // bytes, on every file system that Linux has

// The work file of a name that leaves no room for the suffix bears the name's beginning.
std::string partialOf(const std::string& path) {
    const auto name = lastPathComponent(path).substr(0, kLongestName - kPartialSuffix.size());
    return joinPath(parentPath(path), std::string(name).append(kPartialSuffix));
}

// From one volume to another.
class MoveByCopy {
public:
    // `original` is the status of the file at `from`, which is a regular one.
    MoveByCopy(FileSystem& fileSystem, const std::string& from, const std::string& to, const FileStatus& original)
        : fileSystem_(fileSystem), from_(from), to_(to), partial_(partialOf(to)), original_(original) {}

    Expected<void> move() {
        // Asked before a large file is copied in vain; the rename decides.
        if (somethingStandsAt(fileSystem_, to_)) return systemFailure(EEXIST);
        removePartial();
        if (auto placed = placeCopy(); !placed) {
            removePartial();
            return placed;
        }
        if (auto removed = removeOriginal(); !removed) return takeCopyBack(removed.error());
        return {};
    }

private:
    Expected<void> placeCopy() {
        if (auto copied = copyFile(fileSystem_, from_, partial_); !copied) return copied;
        const auto status = fileSystem_.status(partial_);
        if (!status) return tl::unexpected(status.error());
        copy_ = status->identity;
        return fileSystem_.renameWithoutReplacing(partial_, to_);
    }

    // The original goes only if the copy's name outlives a power cut, and if nobody wrote to it meanwhile.
    Expected<void> removeOriginal() {
        if (auto synced = fileSystem_.syncDirectory(std::string(parentPath(to_))); !synced) return synced;
        const auto now = fileSystem_.status(from_);
        if (!now) return tl::unexpected(now.error());
        if (!isUnchanged(original_, *now))
            return tl::unexpected(Error{"FileMove", 1, "The file changed while it was being moved"});
        return fileSystem_.removeFile(from_);
    }

    // The copy goes only while the original is certain to stand.
    Expected<void> takeCopyBack(const Error& reason) {
        const auto now = fileSystem_.status(from_);
        // Somebody else has removed it, or the removal was done in spite of what was said: the copy is the file now.
        if (!now && isSystemError(now.error(), ENOENT)) return {};
        if (now && now->identity == original_.identity && isOurCopy()) static_cast<void>(fileSystem_.removeFile(to_));
        return tl::unexpected(reason);
    }

    [[nodiscard]] bool isOurCopy() const {
        const auto status = fileSystem_.status(to_);
        return status && status->identity == copy_;
    }

    void removePartial() { static_cast<void>(fileSystem_.removeFile(partial_)); }

    FileSystem& fileSystem_;
    const std::string& from_;
    const std::string& to_;
    std::string partial_;
    FileStatus original_;
    FileIdentity copy_;
};

}  // namespace

Expected<void> moveFile(FileSystem& fileSystem, const std::string& from, const std::string& to) {
    const auto status = fileSystem.status(from);
    if (!status) return tl::unexpected(status.error());
    if (status->type == FileType::directory) return systemFailure(EISDIR);
    auto renamed = fileSystem.renameWithoutReplacing(from, to);
    if (renamed || !isSystemError(renamed.error(), EXDEV)) return renamed;
    // A copy carries content over, which pipes have none of and symlinks borrow.
    if (status->type != FileType::regular) return renamed;
    return MoveByCopy(fileSystem, from, to, *status).move();
}

Expected<std::string> moveToFreeName(FileSystem& fileSystem, const std::string& from, const std::string& wanted) {
    constexpr int kMostNamesTried = 100;
    for (int tried = 1;; ++tried) {
        auto target = uniqueDestination(fileSystem, wanted);
        const auto moved = moveFile(fileSystem, from, target);
        if (moved) return target;
        if (!isSystemError(moved.error(), EEXIST) || tried == kMostNamesTried) return tl::unexpected(moved.error());
    }
}

}  // namespace vellomar
