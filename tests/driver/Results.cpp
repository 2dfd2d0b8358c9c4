#include "driver/Results.h"

#include "engine/model/DateString.h"
#include "undo/ManifestText.h"

namespace vellomar::driver {
namespace {

Json jsonOf(const PlanRow& row) {
    return {{"id", row.id.text()},
            {"source", row.source},
            {"destination", row.destination},
            {"action", row.action},
            {"resolvedDate", row.resolvedDate},
            {"decision", row.decision},
            {"cameraModel", row.cameraModel}};
}

Json jsonOf(const DuplicateGroup& group) {
    return {{"canonical", group.canonical}, {"duplicates", group.duplicates}};
}

Json jsonOf(const MediaBreakdown& breakdown) {
    return {{"images", breakdown.images}, {"videos", breakdown.videos}, {"other", breakdown.other}};
}

Json jsonOf(const LibraryStats& stats) {
    return {{"totalFiles", stats.totalFiles},
            {"totalBytes", stats.totalBytes},
            {"byYear", stats.byYear},
            {"byCamera", stats.byCamera},
            {"byExtension", stats.byExtension},
            {"dateSourceBreakdown", stats.dateSourceBreakdown},
            {"duplicateCount", stats.duplicateCount},
            {"nearDupCount", stats.nearDupCount}};
}

template <typename Records>
Json listOf(const Records& records) {
    Json list = Json::array();
    for (const auto& record : records)
        list.push_back(jsonOf(record));
    return list;
}

}  // namespace

Json jsonOf(Instant instant) {
    const auto seconds = wholeUnixSeconds(instant);
    if (instant == instantFromUnixSeconds(seconds)) return seconds;
    return unixSeconds(instant);
}

Json jsonOf(const DateCandidate& candidate) {
    return {{"epoch", jsonOf(candidate.date)},
            {"text", dateString(candidate.date, "yyyy-MM-dd HH:mm:ss")},
            {"source", candidate.source},
            {"score", candidate.score}};
}

Json jsonOf(const ImageEXIFResult& result) {
    return {{"epoch", jsonOf(result.date)},
            {"text", dateString(result.date, "yyyy-MM-dd HH:mm:ss")},
            {"reason", result.reason}};
}

Json jsonOf(const DecisionResult& decision) {
    return {{"finalDest", decision.finalDest},       {"resolvedDateStr", decision.resolvedDateStr},
            {"decision", decision.decision},         {"dateUsed", jsonOf(decision.dateUsed)},
            {"isStrongDate", decision.isStrongDate}, {"meaningfulTail", decision.meaningfulTail},
            {"sha256", jsonOf(decision.sha256)},     {"conflictPolicy", std::string(rawText(decision.conflictPolicy))},
            {"decisionLog", decision.decisionLog},   {"cameraModel", decision.cameraModel}};
}

Json jsonOf(const UndoManifest& manifest) {
    // What a script sees is the file's own form.
    return parseJson(manifestText(manifest)).value();
}

Json jsonOf(const IntegrityReport& report) {
    return {{"unreadableFiles", report.unreadableFiles},     {"noDateSignal", report.noDateSignal},
            {"suspectedCorrupt", report.suspectedCorrupt},   {"readOnlySource", report.readOnlySource},
            {"insufficientSpace", report.insufficientSpace}, {"totalScanned", report.totalScanned}};
}

Json jsonOf(const RunEstimate& estimate) {
    return {{"fileCount", estimate.fileCount},
            {"totalBytes", estimate.totalBytes},
            {"estimatedSeconds", estimate.estimatedSeconds}};
}

Json jsonOf(const PublishedState& state) {
    return {{"isRunning", state.isRunning},
            {"previewRowsCapped", state.previewRowsCapped},
            {"totalFilesScanned", state.totalFilesScanned},
            {"progress", state.progress},
            {"statusText", state.statusText},
            {"logLines", state.logLines},
            {"previewRows", listOf(state.previewRows)},
            {"mediaBreakdown", jsonOf(state.mediaBreakdown)},
            {"duplicateDestPaths", state.duplicateDestPaths},
            {"duplicateGroups", listOf(state.duplicateGroups)},
            {"libraryStats", jsonOf(state.libraryStats)},
            {"integrityReport", jsonOf(state.integrityReport)},
            {"verifyFailures", state.verifyFailures},
            {"rawJpegPairs", state.rawJpegPairs},
            {"bytesProcessed", state.bytesProcessed},
            {"bytesPerSecond", state.bytesPerSecond}};
}

Json jsonOf(const Error& error) {
    return {{"domain", error.domain}, {"code", error.code}, {"description", error.description}};
}

}  // namespace vellomar::driver
