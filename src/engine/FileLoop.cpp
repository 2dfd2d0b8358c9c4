#include "engine/FileLoop.h"

#include <string_view>
#include <thread>
#include <utility>

#include <fmt/format.h>

#include "dates/DateDecision.h"
#include "duplicates/PerceptualHash.h"
#include "engine/TextFormats.h"
#include "engine/model/FileKind.h"
#include "platform/FreeName.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr std::size_t kProgressInterval = 200;
constexpr std::size_t kRowBatchSize = 100;
constexpr std::size_t kYearLength = 4;

// The label behind "kind=" at the front of a decision text.
std::string_view dateSourceOf(std::string_view decision) {
    constexpr std::string_view kMarker = "kind=";
    auto first = decision.substr(0, decision.find(';'));
    if (first.starts_with(kMarker)) first.remove_prefix(kMarker.size());
    return first;
}

void countUnder(std::map<std::string, int>& counts, std::string_view key) {
    if (!key.empty()) ++counts[std::string(key)];
}

// A census is of use only where digests are made at all.
const std::vector<TaggedFile>& filesToHash(const RunContext& context, const RunState& state) {
    static const std::vector<TaggedFile> none;
    return context.options().computeHashForDuplicates ? state.files : none;
}

}  // namespace

FileLoop::FileLoop(const RunContext& context, RunState& state, std::vector<FolderRenameRule> rules)
    : context_(context),
      state_(state),
      renameRules_(std::move(rules)),
      sizes_(filesToHash(context, state)),
      metadataReader_(context.services.metadataReaders.open()),
      progress_(state.startTime),
      pixels_(context.services.pixelDecoderProgram),
      transfer_(context, state, pixels_) {}

void FileLoop::run() {
    const auto total = state_.files.size();
    state_.usedDestPaths.reserve(total);
    for (std::size_t i = 0; i < total; ++i) {
        if (context_.isCancelled()) {
            context_.appendLog("Cancellation requested. Stopping...");
            state_.wasCancelled = true;
            break;
        }
        const auto& file = state_.files[i];
        state_.byteSum += file.size.value_or(0);
        if ((i + 1) % kProgressInterval == 0) publishProgress(i + 1);
        std::this_thread::yield();
        handle(file);
        state_.processed = i + 1;
    }
    if (!pendingRows_.empty()) publishRows();
}

void FileLoop::handle(const TaggedFile& file) {
    auto decision = decide(file);
    context_.appendLog(std::move(decision.decisionLog));
    auto& entry = takeDestination(decision);
    const auto& destination = entry.first;
    addToStatistics(file, decision);
    addPlanRow(file, decision, destination);
    recordForDuplicates(file, decision, entry);
    hashPicture(file, destination);
    if (options().dryRun)
        plan(file, destination);
    else
        transfer_.transferFile(file, decision, destination);
}

DecisionResult FileLoop::decide(const TaggedFile& file) {
    const auto& services = context_.services;
    return decideFile({.fileSystem = services.fileSystem,
                       .clock = services.clock,
                       .userDefaults = services.userDefaults,
                       .metadataReader = metadataReader_.get(),
                       .folderEvidence = folderEvidence_,
                       .siblingYears = siblingYears_},
                      {.path = file.path,
                       .sourceRoot = *file.sourceRoot,
                       .dest = context_.request.dest,
                       .options = options(),
                       .exifDates = state_.exifDates,
                       .exifCameras = state_.exifCameras,
                       .rules = renameRules_,
                       .mayHaveDuplicate = sizes_.mayHaveDuplicate(file)});
}

// The free name is looked for on the disk alone. In a dry run, where nothing was written, two files may thus be shown
// with one destination.
FileLoop::DestinationEntry& FileLoop::takeDestination(const DecisionResult& decision) {
    const auto [entry, isNew] = state_.usedDestPaths.try_emplace(decision.finalDest);
    if (isNew) return *entry;
    auto destination = uniqueDestination(context_.services.fileSystem, decision.finalDest);
    context_.appendLog("⚠ Path collision — renaming to avoid overwrite: " +
                       std::string(lastPathComponent(destination)));
    return *state_.usedDestPaths.try_emplace(std::move(destination)).first;
}

void FileLoop::addToStatistics(const TaggedFile& file, const DecisionResult& decision) {
    auto& stats = state_.libraryStats;
    countUnder(stats.byYear, std::string_view(decision.resolvedDateStr).substr(0, kYearLength));
    if (decision.cameraModel != kUnknownCamera) countUnder(stats.byCamera, decision.cameraModel);
    countUnder(stats.byExtension, lowercased(pathExtension(file.path)));
    countUnder(stats.dateSourceBreakdown, dateSourceOf(decision.decision));
    stats.totalBytes += file.size.value_or(0);
    ++stats.totalFiles;
}

void FileLoop::addPlanRow(const TaggedFile& file, const DecisionResult& decision, const std::string& destination) {
    const std::string_view verb = options().moveOriginalsWhenReliable ? "MOVE->" : "COPY->";
    pendingRows_.push_back({.source = file.path,
                            .destination = destination,
                            .action = fmt::format("{}{}", verb, destination),
                            .resolvedDate = decision.resolvedDateStr,
                            .decision = decision.decision,
                            .cameraModel = decision.cameraModel});
    if (pendingRows_.size() >= kRowBatchSize) publishRows();
}

void FileLoop::recordForDuplicates(const TaggedFile& file, DecisionResult& decision, DestinationEntry& entry) {
    auto& [destination, placed] = entry;
    placed.fileDate = decision.dateUsed;
    placed.meaningfulTail = std::move(decision.meaningfulTail);
    placed.source = &file;
    if (decision.sha256) state_.hashGroups[*decision.sha256].push_back(destination);
}

// Before the transfer, which may take the source away.
void FileLoop::hashPicture(const TaggedFile& file, std::string_view destination) {
    if (!options().usePerceptualHash || options().storageIsNetwork || fileKindOf(file.path) != FileKind::image) return;
    const auto hash = perceptualHash(context_.services.fileSystem, pixels_, file.path);
    if (hash) state_.perceptualBuckets.append(*hash, file.path, destination);
}

void FileLoop::plan(const TaggedFile& file, const std::string& destination) {
    const std::string_view verb = options().moveOriginalsWhenReliable ? "Move" : "Copy";
    context_.appendLog(fmt::format("[DRY] {}: {} -> {}", verb, file.path, destination));
}

void FileLoop::publishRows() {
    context_.port.hop([rows = std::exchange(pendingRows_, {})](MainActorState& main) mutable {
        main.published.appendPreviewRows(std::move(rows));
    });
}

void FileLoop::publishProgress(std::size_t count) {
    const auto total = state_.files.size();
    const auto now = context_.services.clock.steadyNow();
    const double eta = progress_.etaAfter(count, total, now);
    const double elapsed = progress_.elapsed(now);
    const double rate = elapsed > 0 ? static_cast<double>(state_.byteSum) / elapsed : 0;
    auto status = fmt::format("{} of {} — ETA {}", count, total, formatEta(eta));
    context_.port.hop([=, bytes = state_.byteSum](MainActorState& main) {
        main.published.setProgress(static_cast<double>(count) / static_cast<double>(total));
        main.published.set(PublishedField::bytesProcessed, &PublishedState::bytesProcessed, bytes);
        main.published.set(PublishedField::bytesPerSecond, &PublishedState::bytesPerSecond, rate);
        main.published.setStatus(status);
    });
}

}  // namespace vellomar
