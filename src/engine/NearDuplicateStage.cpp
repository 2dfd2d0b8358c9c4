#include "engine/NearDuplicateStage.h"

#include <fmt/format.h>

#include "duplicates/NearDuplicates.h"
#include "platform/AtomicWrite.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

// The line is logged whether or not the report could be written.
void leaveReport(const RunContext& context, const PerceptualBuckets::Grouped& images,
                 const std::vector<NearDuplicate>& pairs) {
    const auto path = joinPath(context.request.dest, kNearDuplicatesReportName);
    static_cast<void>(writeAtomically(context.services.fileSystem, path, nearDuplicatesReportText(images, pairs)));
    context.appendLog(fmt::format("Near-duplicates report: {}", kNearDuplicatesReportName));
}

}  // namespace

void reportNearDuplicates(const RunContext& context, const RunState& state) {
    const auto& options = context.options();
    const auto images = state.perceptualBuckets.grouped();
    std::size_t count = 0;
    std::vector<NearDuplicate> pairs;  // only for the report, as there may be very many
    findNearDuplicates(images, options.perceptualHashThreshold, [&](const NearDuplicate& pair) {
        context.appendLog(fmt::format("≈ Near-dup (dist={}): {} ↔ {}", pair.distance,
                                      lastPathComponent(images.records[pair.first].source),
                                      lastPathComponent(images.records[pair.second].source)));
        ++count;
        if (options.dryRun) pairs.push_back(pair);
    });
    if (count == 0) {
        context.appendLog("No near-duplicates detected.");
        return;
    }
    context.appendLog(fmt::format("Found {} near-duplicate pair(s).", count));
    if (options.dryRun) leaveReport(context, images, pairs);
}

}  // namespace vellomar
