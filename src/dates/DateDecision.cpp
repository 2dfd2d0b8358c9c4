#include "dates/DateDecision.h"

#include <optional>
#include <utility>

#include <fmt/format.h>

#include "dates/CandidateRanking.h"
#include "engine/model/DateString.h"
#include "engine/model/FileKind.h"
#include "naming/BuildDestination.h"
#include "platform/FileDigest.h"
#include "platform/LocalTime.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr int kSiblingScore = 30;
constexpr int kRescueUpToScore = 20;  // what a file date scores at best

std::string_view trimmedOfSlashes(std::string_view text) {
    constexpr std::string_view kSlashes = "/\\";
    const auto first = text.find_first_not_of(kSlashes);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSlashes) + 1 - first);
}

// Leaves out every occurrence of `unwanted`.
std::string without(std::string_view text, std::string_view unwanted) {
    if (unwanted.empty()) return std::string(text);
    std::string kept;
    kept.reserve(text.size());
    for (auto at = text.find(unwanted); at != std::string_view::npos; at = text.find(unwanted)) {
        kept += text.substr(0, at);
        text.remove_prefix(at + unwanted.size());
    }
    kept += text;
    return kept;
}

// All that stands in a folder, as absolute paths; nothing if the listing fails before its end.
std::optional<std::vector<std::string>> entriesOf(FileSystem& fileSystem, const std::string& folder) {
    // The folder was reached by the walk; if it is a symlink, then one that the user named as a source.
    const auto directory = fileSystem.openDirectory(folder, true);
    if (!directory) return std::nullopt;
    std::vector<std::string> entries;
    while (true) {
        const auto entry = (*directory)->next();
        if (!entry) return std::nullopt;
        if (!*entry) return entries;
        entries.push_back(joinPath(folder, (*entry)->name));
    }
}

// The year of the images beside the file, for one that has nothing better than a file date.
std::optional<DateCandidate> siblingCandidate(const DecisionContext& context, const std::string& path) {
    if (context.metadataReader == nullptr) return std::nullopt;
    const auto entries = entriesOf(context.fileSystem, std::string(parentPath(path)));
    if (!entries) return std::nullopt;
    const auto year = context.siblingYears.siblingYear(*entries, path, *context.metadataReader);
    if (!year) return std::nullopt;
    const auto date = middleOf({.year = *year, .month = std::nullopt});
    if (!date) return std::nullopt;
    return DateCandidate{*date, "Sibling-derived Y", kSiblingScore};
}

std::string joinedByBackslash(const std::vector<std::string>& names) {
    return fmt::format("{}", fmt::join(names, "\\"));
}

std::string decisionText(const DateCandidate& best, const MeaningfulFolders& folders, const DecisionResult& result) {
    return fmt::format("kind={}; strong={}; date={}; first='{}'; tail='{}'; dest='{}'", best.source,
                       result.isStrongDate ? 'Y' : 'N', result.resolvedDateStr, folders.first.value_or(std::string()),
                       joinedByBackslash(folders.tail), result.finalDest);
}

const FolderEvidence& folderEvidenceOf(const DecisionContext& context, const DecisionRequest& request, Instant now) {
    const auto relativeFolder = relativeFolderOf(request.path, request.sourceRoot);
    return context.folderEvidence.evidenceFor({.relativeFolder = relativeFolder,
                                               .rules = request.rules,
                                               .secretFloppyMode = context.userDefaults.secretFloppyMode(),
                                               .parseMonthWords = request.options.parseMonthWords,
                                               .now = now});
}

std::vector<DateCandidate> checkedCandidates(const DecisionContext& context, const DecisionRequest& request,
                                             const std::optional<FolderYearMonth>& folder, Instant now) {
    const CandidateSources sources{context.fileSystem, context.metadataReader, request.exifDates, request.options};
    auto candidates = gatherDateCandidates(sources, request.path, fileKindOf(request.path), folder, now);
    dropImpossibleDates(candidates, now);
    confirmByFilename(candidates);
    suspectFileDates(candidates);
    return candidates;
}

// The best candidate. The year of the neighbours overrules one that is no better than a file date.
DateCandidate believedDate(const DecisionContext& context, const DecisionRequest& request,
                           const std::vector<DateCandidate>& candidates, Instant now) {
    auto best = bestOf(candidates, now);
    if (best.score > kRescueUpToScore || request.options.storageIsNetwork) return best;
    return siblingCandidate(context, request.path).value_or(std::move(best));
}

DecisionResult resultOf(const DecisionRequest& request, const DateCandidate& best, const MeaningfulFolders& folders) {
    DecisionResult result;
    result.finalDest = buildDestination(request.path, best.date, folders.first, request.dest, request.options);
    result.resolvedDateStr = dateTimeText(localCivilTime(best.date));
    result.dateUsed = best.date;
    result.isStrongDate = best.score >= kStrongScore;
    result.decision = decisionText(best, folders, result);
    result.meaningfulTail = folders.tail;
    result.conflictPolicy = request.options.conflictPolicy;
    return result;
}

// On a network a digest costs the whole file's way over the wire, which only a real run is worth.
bool wantsDigest(const DecisionRequest& request) {
    const auto& options = request.options;
    return options.computeHashForDuplicates && request.mayHaveDuplicate &&
           !(options.storageIsNetwork && options.dryRun);
}

}  // namespace

std::string relativeFolderOf(std::string_view path, std::string_view sourceRoot) {
    const auto relative = without(path, sourceRoot);
    return std::string(parentPath(trimmedOfSlashes(relative)));
}

DecisionResult decideFile(const DecisionContext& context, const DecisionRequest& request) {
    const auto now = context.clock.now();
    const auto& folder = folderEvidenceOf(context, request, now);
    const auto candidates = checkedCandidates(context, request, folder.yearMonth, now);
    // Before the neighbours are looked at, so that the reader still has this file at hand.
    auto camera = readCameraModel(request.exifCameras, request.path, request.options, context.metadataReader);
    const auto best = believedDate(context, request, candidates, now);
    auto result = resultOf(request, best, folder.meaningful);
    result.decisionLog = candidatesText(best, candidates);
    if (wantsDigest(request)) result.sha256 = sha256OfFile(context.fileSystem, request.path);
    result.cameraModel = std::move(camera);
    return result;
}

}  // namespace vellomar
