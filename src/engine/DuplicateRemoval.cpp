#include "engine/DuplicateRemoval.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "platform/FileDigest.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

// Why this program, and not the system, leaves a duplicate where it is.
tl::unexpected<Error> refusedRemoval(std::string description) {
    return tl::unexpected(Error{"DuplicateRemoval", 1, std::move(description)});
}

// The part of `path` below `folder`; nothing if it does not lie there, going by the text.
std::optional<std::string_view> partBelow(std::string_view path, std::string_view folder) {
    if (!isWithin(path, folder) || path.size() == folder.size()) return std::nullopt;
    path.remove_prefix(folder.size());
    if (!folder.ends_with('/')) path.remove_prefix(1);
    return path;
}

// Whether every component is a name, so that the text tells where the path leads if no symlink is on the way.
bool isPlain(std::string_view relative) {
    while (true) {
        const auto slash = relative.find('/');
        const auto name = relative.substr(0, slash);
        if (name.empty() || name == "." || name == "..") return false;
        if (slash == std::string_view::npos) return true;
        relative.remove_prefix(slash + 1);
    }
}

}  // namespace

bool DuplicateRemoval::existsAt(const std::string& path) const {
    const auto status = fileSystem_.statusFollowingLinks(path);
    if (status) return true;
    constexpr std::array kLeadsNowhere = {ENOENT, ENOTDIR, ELOOP};
    return std::ranges::none_of(kLeadsNowhere, [&](int value) { return isSystemError(status.error(), value); });
}

Expected<void> DuplicateRemoval::check(const std::string& path, const ExactDuplicates& group) {
    if (auto placed = checkPlace(path); !placed) return placed;
    const auto status = statusOfFile(path);
    if (!status) return tl::unexpected(status.error());
    const std::string canonical(group.canonical());
    const auto statusOfKept = statusOfCanonical(canonical);
    if (!statusOfKept) return tl::unexpected(statusOfKept.error());
    if (status->identity == statusOfKept->identity) return refusedRemoval("Both paths lead to the same file");
    if (isOriginal(status->identity, group)) return refusedRemoval("It is an original");
    if (!holds(canonical, *statusOfKept, group.sha256)) return refusedRemoval("The file to keep has other content");
    if (!holds(path, *status, group.sha256))
        return refusedRemoval("It was not placed by this run and has other content");
    return {};
}

// Every folder between the destination and the file is one itself, not a link to one.
Expected<void> DuplicateRemoval::checkPlace(const std::string& path) const {
    const auto relative = partBelow(path, dest_);
    if (!relative || !isPlain(*relative)) return refusedRemoval("It does not lie plainly in the destination folder");
    const auto above = path.size() - relative->size();
    for (auto slash = path.find('/', above); slash != std::string::npos; slash = path.find('/', slash + 1)) {
        const auto folder = fileSystem_.status(path.substr(0, slash));
        if (!folder) return tl::unexpected(folder.error());
        if (folder->type != FileType::directory) return refusedRemoval("A symbolic link leads to it");
    }
    return {};
}

Expected<FileStatus> DuplicateRemoval::statusOfFile(const std::string& path) const {
    auto status = fileSystem_.status(path);
    if (status && status->type != FileType::regular) return refusedRemoval("It is not a regular file");
    return status;
}

Expected<FileStatus> DuplicateRemoval::statusOfCanonical(const std::string& path) const {
    auto status = fileSystem_.statusFollowingLinks(path);
    if (!status) return refusedRemoval("The file to keep cannot be found");
    if (status->type != FileType::regular) return refusedRemoval("The file to keep is not a regular file");
    return status;
}

bool DuplicateRemoval::wasPlaced(const std::string& path, const FileStatus& status, std::string_view sha256) const {
    const auto placed = state_.usedDestPaths.find(path);
    if (placed == state_.usedDestPaths.end() || !placed->second.mark) return false;
    const auto& mark = *placed->second.mark;
    return mark.sha256 == sha256 && isUnchanged(mark.status, status);
}

// What this run placed and checked need not be read again, and could not always: where it also removed metadata, the
// file no longer has the hash that it came with.
bool DuplicateRemoval::holds(const std::string& path, const FileStatus& status, std::string_view sha256) const {
    return wasPlaced(path, status, sha256) || sha256OfFile(fileSystem_, path) == sha256;
}

// Where a run sorts files within the destination, an original may stand at its own final destination.
bool DuplicateRemoval::isOriginal(const FileIdentity& file, const ExactDuplicates& group) {
    const auto& originals = originalsOf(group);
    return std::ranges::find(originals, file) != originals.end();
}

const std::vector<FileIdentity>& DuplicateRemoval::originalsOf(const ExactDuplicates& group) {
    const auto [entry, isNew] = originalsByHash_.try_emplace(group.sha256);
    auto& originals = entry->second;
    if (!isNew) return originals;
    for (const auto path : group.paths) {
        const auto placed = state_.usedDestPaths.find(std::string(path));
        if (placed == state_.usedDestPaths.end() || placed->second.source == nullptr) continue;
        if (const auto status = fileSystem_.statusFollowingLinks(placed->second.source->path); status)
            originals.push_back(status->identity);
    }
    return originals;
}

}  // namespace vellomar
