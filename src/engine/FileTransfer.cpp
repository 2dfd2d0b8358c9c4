#include "engine/FileTransfer.h"

#include <cerrno>
#include <utility>

#include <fmt/format.h>

#include "engine/BufferedCopy.h"
#include "engine/PostCopy.h"
#include "platform/FileCopy.h"
#include "platform/FileMove.h"
#include "platform/FreeName.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr std::size_t kComparedHashLength = 16;

std::string truthText(bool value) {
    return value ? "true" : "false";
}

// Why this program, and not the system, leaves a source where it is.
tl::unexpected<Error> refusedTransfer(std::string description) {
    return tl::unexpected(Error{"FileTransfer", 1, std::move(description)});
}

}  // namespace

Expected<void> copyToPartial(FileSystem& fileSystem, const std::string& source, const std::string& partial,
                             bool storageIsNetwork) {
    return storageIsNetwork ? bufferedCopy(fileSystem, source, partial) : copyFile(fileSystem, source, partial);
}

void FileTransfer::transferFile(const TaggedFile& file, const DecisionResult& decision,
                                const std::string& finalDestination) {
    const Road road{decision,
                    file.path,
                    finalDestination,
                    std::string(lastPathComponent(file.path)),
                    std::string(parentPath(finalDestination)),
                    finalDestination + std::string(kPartialSuffix)};
    if (!makeParent(road)) return;
    if (context_.options().moveOriginalsWhenReliable)
        move(road);
    else
        copy(road);
}

bool FileTransfer::makeParent(const Road& road) {
    const auto made = makeDirectories(disk(), road.parent);
    if (made) return true;
    const auto& error = made.error();
    context_.appendLog(fmt::format("✗ Cannot create dest dir [{}]: {} (domain={} code={})", road.parent,
                                   error.description, error.domain, error.code));
    context_.appendLog(fmt::format("  destExists={} destWritable={}", existsText(road.parent),
                                   accessText(context_.request.dest, Access::write)));
    return false;
}

// A move is not verified: its source is gone before anything could be compared. What is certain is that the bytes and
// the name of the copy are on the disk before the source goes.
void FileTransfer::move(const Road& road) {
    if (!road.decision.isStrongDate) {
        context_.appendLog("⚠ Skipped move (weak date score): " + road.name);
        return;
    }
    const auto statusBeforeCopy = disk().statusFollowingLinks(road.source);
    if (!statusBeforeCopy) {
        context_.appendLog("✗ Source missing, skipping: " + road.source);
        return;
    }
    const auto placement = bringToDestination(road);
    if (!placement) {
        removePartial(road.partial);
        context_.appendLog(
            fmt::format("✗ Move failed [{}] → [{}]: {}", road.source, road.destination, placement.error().description));
        return;
    }
    if (*placement == Placement::skipped) return;
    if (const auto removed = removeSource(road, *statusBeforeCopy); !removed)
        context_.appendLog("⚠ Could not delete source after move: " + removed.error().description);
    auto hash = context_.options().computeHashForDuplicates ? sha256OfFile(disk(), road.destination) : std::nullopt;
    if (*placement == Placement::placed) markPlaced(road, hash);
    record(road, UndoEntry::OpType::move, std::move(hash));
    context_.appendLog(fmt::format("✓ Moved: {} → {}", road.name, road.destination));
}

void FileTransfer::copy(const Road& road) {
    if (!exists(road.source)) {
        context_.appendLog(fmt::format("✗ Source missing: exists=false readable={} path={}",
                                       accessText(road.source, Access::read), road.source));
        return;
    }
    const auto placement = bringToDestination(road);
    if (!placement) {
        removePartial(road.partial);
        logCopyFailure(road, placement.error());
        return;
    }
    if (*placement == Placement::skipped) return;
    const auto& options = context_.options();
    std::optional<std::string> hash;
    if (options.computeHashForDuplicates || options.verifyAfterCopy) {
        auto destinationHash = digestOfFile(disk(), road.destination);
        if (options.verifyAfterCopy) verify(road, destinationHash);
        if (destinationHash) hash = std::move(*destinationHash);
    }
    if (options.syncFSDates) static_cast<void>(disk().setModificationDate(road.destination, road.decision.dateUsed));
    if (options.moveSidecars) copySidecars(road);
    changeCopy(road);
    if (*placement == Placement::placed) markPlaced(road, hash);
    record(road, UndoEntry::OpType::copy, std::move(hash));
    context_.appendLog(fmt::format("✓ Copied: {} → {}", road.name, road.destination));
}

Expected<FileTransfer::Placement> FileTransfer::bringToDestination(const Road& road) {
    removePartial(road.partial);
    if (auto copied = copyToPartial(disk(), road.source, road.partial, context_.options().storageIsNetwork); !copied)
        return tl::unexpected(copied.error());
    return place(road);
}

// The policy for a conflict is asked only when the copy is complete, and then sees the disk as it is at that moment.
Expected<FileTransfer::Placement> FileTransfer::place(const Road& road) {
    if (somethingStandsAt(disk(), road.destination)) return settleConflict(road);
    const auto renamed = disk().renameWithoutReplacing(road.partial, road.destination);
    if (renamed) return Placement::placed;
    // Somebody took the name between the look and the rename.
    if (isSystemError(renamed.error(), EEXIST)) return settleConflict(road);
    return tl::unexpected(renamed.error());
}

Expected<FileTransfer::Placement> FileTransfer::settleConflict(const Road& road) {
    switch (road.decision.conflictPolicy) {
        case ConflictPolicy::skip:
            removePartial(road.partial);
            context_.appendLog("⚠ Skipped (conflict): " + road.name);
            return Placement::skipped;
        case ConflictPolicy::rename: return placeUnderFreeName(road);
        case ConflictPolicy::overwrite: break;
    }
    // In one step, so that the old or the new file stands there at every moment. A folder is never replaced.
    if (auto renamed = disk().rename(road.partial, road.destination); !renamed) return tl::unexpected(renamed.error());
    return Placement::placed;
}

// The rest of the road goes on speaking of the destination, where the older file stands; the file under the free name
// is recorded nowhere else.
Expected<FileTransfer::Placement> FileTransfer::placeUnderFreeName(const Road& road) {
    while (true) {
        const auto renamed = disk().renameWithoutReplacing(road.partial, uniqueDestination(disk(), road.destination));
        if (renamed) return Placement::underFreeName;
        if (!isSystemError(renamed.error(), EEXIST)) return tl::unexpected(renamed.error());
    }
}

// The only copy of a photo never goes: not when the destination is the source itself by another path, not when the
// copy's name may be lost in a power cut, and not when the source was written to while it was copied.
Expected<void> FileTransfer::removeSource(const Road& road, const FileStatus& statusBeforeCopy) {
    if (isSameFile(disk(), road.source, road.destination))
        return refusedTransfer("Source and destination are the same file");
    if (auto synced = disk().syncDirectory(road.parent); !synced) return synced;
    const auto statusNow = disk().statusFollowingLinks(road.source);
    if (!statusNow) return tl::unexpected(statusNow.error());
    if (!isUnchanged(statusBeforeCopy, *statusNow))
        return refusedTransfer("The source changed while it was being moved");
    return disk().removeFile(road.source);
}

// A copy that cannot be read back is as bad as one that differs. A file that cannot be opened is not compared.
void FileTransfer::verify(const Road& road, const tl::expected<std::string, DigestFailure>& destinationHash) {
    const auto sourceHash = sha256OfFile(disk(), road.source);
    if (!sourceHash || destinationHash == *sourceHash) return;
    if (!destinationHash && destinationHash.error() == DigestFailure::cannotOpen) return;
    reportMismatch(road, *sourceHash, destinationHash.value_or(""));
}

void FileTransfer::reportMismatch(const Road& road, std::string_view sourceHash, std::string_view destinationHash) {
    context_.appendLog("✗ VERIFY FAILED — copy may be corrupted: " + road.name);
    context_.appendLog(fmt::format("  src={}… dst={}…", sourceHash.substr(0, kComparedHashLength),
                                   destinationHash.substr(0, kComparedHashLength)));
    context_.port.hop([](MainActorState& main) {
        auto& published = main.published;
        published.set(PublishedField::verifyFailures, &PublishedState::verifyFailures,
                      published.state().verifyFailures + 1);
    });
}

void FileTransfer::copySidecars(const Road& road) {
    const auto sidecars = state_.sidecarsByPath.find(road.source);
    if (sidecars == state_.sidecarsByPath.end()) return;
    for (const auto& sidecar : sidecars->second) {
        const std::string name(lastPathComponent(sidecar));
        const auto target = joinPath(road.parent, name);
        if (somethingStandsAt(disk(), target)) continue;
        // The line tells what was meant to be carried along; a sidecar that could not be is no failure of its photo.
        static_cast<void>(copySidecar(sidecar, target));
        context_.appendLog("  ↳ Sidecar: " + name);
    }
}

bool FileTransfer::copySidecar(const std::string& sidecar, const std::string& target) {
    const auto partial = target + std::string(kPartialSuffix);
    removePartial(partial);
    if (copyFile(disk(), sidecar, partial) && disk().renameWithoutReplacing(partial, target)) return true;
    removePartial(partial);
    return false;
}

// What is changed is what stands at the destination, as everywhere on the road; but never the source, which is the same
// file when a folder is sorted into itself.
void FileTransfer::changeCopy(const Road& road) {
    const auto& options = context_.options();
    const bool isAsked = options.convertHEICToJPEG || options.stripAllMetadata || options.stripGPS;
    if (!isAsked || isSameFile(disk(), road.source, road.destination)) return;
    if (options.convertHEICToJPEG && isConvertibleToJpeg(road.destination)) convertToJpeg(road);
    stripMetadata(road);
}

void FileTransfer::convertToJpeg(const Road& road) {
    const auto jpeg = convertHeicToJpeg(disk(), pixels_, road.destination);
    if (!jpeg) return;  // the copy is as good as it was, and stays
    static_cast<void>(disk().removeFile(road.destination));
    context_.appendLog("  ↳ HEIC→JPEG: " + std::string(lastPathComponent(*jpeg)));
}

// A file that ExifTool cannot change stays as it is. That goes for a converted one too: it is not there any more.
void FileTransfer::stripMetadata(const Road& road) {
    const auto& options = context_.options();
    const auto& exifTool = context_.services.exifTool;
    if (options.stripAllMetadata)
        static_cast<void>(stripAllMetadataTags(exifTool, road.destination));
    else if (options.stripGPS)
        static_cast<void>(stripGpsMetadata(exifTool, road.destination));
}

void FileTransfer::logCopyFailure(const Road& road, const Error& error) {
    context_.appendLog(fmt::format("✗ Copy failed [{}]: {} (domain={} code={})", road.name, error.description,
                                   error.domain, error.code));
    context_.appendLog(fmt::format("  exists={} readable={} destParentWritable={}", existsText(road.source),
                                   accessText(road.source, Access::read), accessText(road.parent, Access::write)));
}

void FileTransfer::record(const Road& road, UndoEntry::OpType op, std::optional<std::string> sha256) {
    state_.manifest.appendUndoEntry(
        {op, road.source, road.destination, std::move(sha256), context_.services.clock.now()});
}

// What the search for duplicates needs to know before it may remove a file: that this very file came from this run and
// holds what it was to hold.
void FileTransfer::markPlaced(const Road& road, const std::optional<std::string>& destinationHash) {
    const bool mayBeRemoved = context_.options().duplicateAction != DuplicateAction::log && road.decision.sha256;
    if (!mayBeRemoved || destinationHash != road.decision.sha256) return;
    const auto status = disk().status(road.destination);
    const auto placed = state_.usedDestPaths.find(road.destination);
    const auto group = state_.hashGroups.find(*road.decision.sha256);
    if (!status || placed == state_.usedDestPaths.end() || group == state_.hashGroups.end()) return;
    placed->second.mark = std::make_unique<PlacementMark>(PlacementMark{group->first, *status});
}

bool FileTransfer::exists(const std::string& path) const {
    return disk().statusFollowingLinks(path).has_value();
}

std::string FileTransfer::existsText(const std::string& path) const {
    return truthText(exists(path));
}

std::string FileTransfer::accessText(const std::string& path, Access access) const {
    return truthText(disk().checkAccess(path, access).has_value());
}

void FileTransfer::removePartial(const std::string& partial) const {
    static_cast<void>(disk().removeFile(partial));
}

}  // namespace vellomar
