#include "undo/UndoExecution.h"

#include <cerrno>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "platform/FileDigest.h"
#include "platform/FileMove.h"
#include "platform/Path.h"
#include "undo/EmptyFolderSweep.h"

namespace vellomar {
namespace {

// Manifests come from anywhere. The kernel would look for a relative path below the folder that the program happened
// to be started in, and cut a path at its first NUL.
bool isAbsolute(std::string_view path) {
    return path.starts_with('/') && path.find('\0') == std::string_view::npos;
}

class UndoExecution {
public:
    UndoExecution(FileSystem& fileSystem, const UndoManifest& manifest, const UndoReports& reports)
        : fileSystem_(fileSystem), manifest_(manifest), reports_(reports), sweep_(fileSystem, manifest.destRoot) {}

    UndoCounters run() {
        const auto& entries = manifest_.entries;
        std::size_t visited = 0;
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            ++visited;
            const Road road{*entry, withoutTrailingSlashes(entry->source), withoutTrailingSlashes(entry->destination)};
            if (!isToBeTakenBack(road)) continue;
            takeBack(road);
            reports_.progress(static_cast<double>(visited) / static_cast<double>(entries.size()));
            std::this_thread::yield();
        }
        sweep_.finish();
        return counters_;
    }

private:
    // One entry's file on its way back.
    struct Road {
        const UndoEntry& entry;
        std::string source;
        std::string destination;

        [[nodiscard]] std::string_view name() const { return lastPathComponent(destination); }
    };

    // Only what still is as the run left it. A file that is gone reports a changed one when the entry has a hash.
    [[nodiscard]] bool isToBeTakenBack(const Road& road) {
        if (road.entry.sha256 && digestOf(road.destination) != road.entry.sha256) {
            skip("⚠ SKIP (file changed since sort — hash mismatch): ", road);
            return false;
        }
        if (!exists(road.destination)) {
            skip("⚠ SKIP (already gone): ", road);
            return false;
        }
        return true;
    }

    void takeBack(const Road& road) {
        switch (road.entry.op) {
            case UndoEntry::OpType::copy: return removeCopy(road);
            case UndoEntry::OpType::move: return restore(road);
        }
    }

    void removeCopy(const Road& road) {
        if (const auto removed = fileSystem_.removeFile(road.destination)) {
            reports_.log("✓ Removed copy: " + road.destination);
            ++counters_.reversed;
        } else {
            fail(road, removed.error());
        }
        sweep_.sweep({std::string(parentPath(road.destination))});
    }

    void restore(const Road& road) {
        std::vector<std::string> leftFolders = {std::string(parentPath(road.destination))};
        if (const auto target = moveBack(road)) {
            reports_.log(fmt::format("✓ Restored: {} → {}", road.name(), *target));
            ++counters_.reversed;
        } else {
            fail(road, target.error());
            // Folders that were made for the file in vain.
            if (sweep_.covers(road.source)) leftFolders.emplace_back(parentPath(road.source));
        }
        sweep_.sweep(leftFolders);
    }

    // Where the file is now.
    [[nodiscard]] Expected<std::string> moveBack(const Road& road) {
        if (!isAbsolute(road.source)) return systemFailure(EINVAL);
        // If this fails, the move tells why.
        static_cast<void>(makeDirectories(fileSystem_, std::string(parentPath(road.source))));
        return moveToFreeName(fileSystem_, road.destination, road.source);
    }

    void skip(std::string_view reason, const Road& road) {
        reports_.log(fmt::format("{}{}", reason, road.name()));
        ++counters_.skipped;
    }

    void fail(const Road& road, const Error& error) {
        reports_.log(fmt::format("✗ Failed: {} — {}", road.name(), error.description));
        ++counters_.failed;
    }

    [[nodiscard]] std::optional<std::string> digestOf(const std::string& path) const {
        return isAbsolute(path) ? sha256OfFile(fileSystem_, path) : std::nullopt;
    }

    [[nodiscard]] bool exists(const std::string& path) const {
        return isAbsolute(path) && fileSystem_.statusFollowingLinks(path).has_value();
    }

    FileSystem& fileSystem_;
    const UndoManifest& manifest_;
    const UndoReports& reports_;
    EmptyFolderSweep sweep_;
    UndoCounters counters_;
};

}  // namespace

UndoCounters executeUndo(FileSystem& fileSystem, const UndoManifest& manifest, const UndoReports& reports) {
    return UndoExecution(fileSystem, manifest, reports).run();
}

}  // namespace vellomar
