#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/RunContext.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/TaggedFile.h"
#include "platform/Error.h"
#include "platform/FileDigest.h"
#include "platform/decoder/PixelDecoder.h"

namespace vellomar {

// Copies `source` to `partial`, where nothing may stand: through one buffer and without attributes on network storage,
// else with all that the platform keeps. The bytes are on the disk on return.
[[nodiscard]] Expected<void> copyToPartial(FileSystem& fileSystem, const std::string& source,
                                           const std::string& partial, bool storageIsNetwork);

// Brings files of a real run to their destinations. A file gets its final name only when all its bytes are on the
// disk; an original goes only when its copy is there for good; whatever fails costs its lines in the log and that one
// file. On the run's thread.
class FileTransfer {
public:
    // `pixels` converts pictures; all must outlive this object.
    FileTransfer(const RunContext& context, RunState& state, PixelDecoder& pixels)
        : context_(context), state_(state), pixels_(pixels) {}

    // One file's whole road. What was done is added to the run's manifest.
    void transferFile(const TaggedFile& file, const DecisionResult& decision, const std::string& finalDestination);

private:
    // One file on its road.
    struct Road {
        const DecisionResult& decision;
        const std::string& source;
        const std::string& destination;
        std::string name;     // of the source
        std::string parent;   // of the destination
        std::string partial;  // work file beside the destination
    };
    enum class Placement { placed, underFreeName, skipped };

    void move(const Road& road);
    void copy(const Road& road);

    [[nodiscard]] bool makeParent(const Road& road);
    [[nodiscard]] Expected<Placement> bringToDestination(const Road& road);
    [[nodiscard]] Expected<Placement> place(const Road& road);
    [[nodiscard]] Expected<Placement> settleConflict(const Road& road);
    [[nodiscard]] Expected<Placement> placeUnderFreeName(const Road& road);

    [[nodiscard]] Expected<void> removeSource(const Road& road, const FileStatus& statusBeforeCopy);
    void verify(const Road& road, const tl::expected<std::string, DigestFailure>& destinationHash);
    void reportMismatch(const Road& road, std::string_view sourceHash, std::string_view destinationHash);
    void copySidecars(const Road& road);
    [[nodiscard]] bool copySidecar(const std::string& sidecar, const std::string& target);
    void changeCopy(const Road& road);
    void convertToJpeg(const Road& road);
    void stripMetadata(const Road& road);
    void logCopyFailure(const Road& road, const Error& error);
    void markPlaced(const Road& road, const std::optional<std::string>& destinationHash);
    void record(const Road& road, UndoEntry::OpType op, std::optional<std::string> sha256);

    [[nodiscard]] FileSystem& disk() const { return context_.services.fileSystem; }
    [[nodiscard]] bool exists(const std::string& path) const;
    [[nodiscard]] std::string existsText(const std::string& path) const;
    [[nodiscard]] std::string accessText(const std::string& path, Access access) const;
    void removePartial(const std::string& partial) const;

    const RunContext& context_;
    RunState& state_;
    PixelDecoder& pixels_;
};

}  // namespace vellomar
