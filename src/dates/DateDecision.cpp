#include "dates/DateDecision.h"

#include <optional>
#include <utility>

#include <fmt/format.h>

#include "dates/CandidateRanking.h"
#include "dates/SiblingYear.h"
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
    const auto year = siblingYear(*entries, path, *context.metadataReader);
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
    const auto& [path, sourceRoot, dest, options, exifDates, exifCameras, rules, mayHaveDuplicate] = request;
    const auto now = context.clock.now();
    const auto relativeFolder = relativeFolderOf(path, sourceRoot);
    const auto& [meaningful, yearMonth] =
        context.folderEvidence.evidenceFor({.relativeFolder = relativeFolder,
                                            .rules = rules,
                                            .secretFloppyMode = context.userDefaults.secretFloppyMode(),
                                            .parseMonthWords = options.parseMonthWords,
                                            .now = now});

    const CandidateSources sources{context.fileSystem, context.metadataReader, exifDates, options};
    auto candidates = gatherDateCandidates(sources, path, fileKindOf(path), yearMonth, now);
    dropImpossibleDates(candidates, now);
    confirmByFilename(candidates);
    suspectFileDates(candidates);
    auto best = bestOf(candidates, now);
    if (best.score <= kRescueUpToScore && !options.storageIsNetwork)
        if (auto lent = siblingCandidate(context, path)) best = *std::move(lent);

    DecisionResult result;
    result.finalDest = buildDestination(path, best.date, meaningful.first, dest, options);
    result.resolvedDateStr = dateTimeText(localCivilTime(best.date));
    result.dateUsed = best.date;
    result.isStrongDate = best.score >= kStrongScore;
    result.decision = decisionText(best, meaningful, result);
    result.meaningfulTail = meaningful.tail;
    if (wantsDigest(request)) result.sha256 = sha256OfFile(context.fileSystem, path);
    result.conflictPolicy = options.conflictPolicy;
    result.decisionLog = candidatesText(best, candidates);
    result.cameraModel = readCameraModel(exifCameras, path, options, context.metadataReader);
    return result;
}

}  // namespace vellomar
