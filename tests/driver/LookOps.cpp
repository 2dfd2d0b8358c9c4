#include <optional>

#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "driver/Results.h"
#include "engine/FileSizes.h"
#include "engine/IntegrityCheck.h"
#include "platform/Path.h"
#include "support/EngineHarness.h"

namespace vellomar::driver {
namespace {

// What a scan would have kept and measured.
struct Kept {
    std::vector<TaggedFile> files;
    FileSizes sizes{true};
};

Kept keptOf(FileSystem& fileSystem, const std::vector<std::string>& paths) {
    Kept kept;
    for (const auto& path : paths) {
        const auto status = fileSystem.status(path);
        const auto size = status ? std::optional(status->size) : std::nullopt;
        if (size) kept.sizes.record(parentPath(path), lastPathComponent(path), *size);
        kept.files.push_back({path, nullptr, size});
    }
    return kept;
}

Json integrity(const Json& arguments) {
    LinuxFileSystem fileSystem;
    const auto kept = keptOf(fileSystem, textsOf(arguments, "paths"));
    const auto dest = textOf(arguments, "dest");
    return jsonOf(runIntegrityCheck(fileSystem, {kept.files, kept.sizes.total(), dest}, optionsOf(arguments), {}));
}

Json capacity(const Json& arguments) {
    LinuxFileSystem fileSystem;
    const auto bytes = availableCapacity(fileSystem, textOf(arguments, "dest"));
    return bytes ? Json(*bytes) : Json(nullptr);
}

Json estimate(const Json& arguments) {
    testing::EngineHarness harness;
    std::optional<RunEstimate> delivered;
    harness.engine->estimateRun(textsOf(arguments, "sources"), optionsOf(arguments),
                                [&](const RunEstimate& found) { delivered = found; });
    harness.mainActor.runUntil([&] { return delivered.has_value(); });
    return jsonOf(*delivered);
}

}  // namespace

void addLookOps(Ops& ops) {
    ops["runIntegrityCheck"] = integrity;
    ops["availableCapacity"] = capacity;
    ops["estimateRun"] = estimate;
}

}  // namespace vellomar::driver
