#include "engine/RunPipeline.h"

#include <memory>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>

#include "engine/DuplicateStage.h"
#include "engine/FileLoop.h"
#include "engine/IntegrityCheck.h"
#include "engine/MetadataStage.h"
#include "engine/NearDuplicateStage.h"
#include "engine/PairDetection.h"
#include "engine/PlanFiles.h"
#include "engine/RunSummary.h"
#include "engine/SourceScan.h"
#include "engine/model/DateString.h"
#include "platform/LocalTime.h"
#include "platform/Path.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

// The stages of a run, each a method, in the order of performRun().
class RunPipeline {
public:
    explicit RunPipeline(const RunContext& context) : context_(context) {}

    void run() {
        if (!claimEngine()) return;
        const auto awake = context_.services.sleepInhibitor.inhibit("Sorting photos");
        performRun();
        context_.log.flushLog(true);
        release();
    }

private:
    void performRun() {
        logSetup();
        context_.publishStatus("Scanning…");
        const auto skipPaths = readResumeSet();
        if (!scan(skipPaths)) return;
        checkIntegrity();
        findPairs();
        begin();
        if (options().useExifToolForImages || options().useExifToolForVideo) readMetadataInBatches(context_, state_);
        processFiles();
        if (state_.wasCancelled)
            context_.appendLog("Cancelled before post-processing.");
        else
            finish();
        logSummary();
        publishOutcome();
        if (!state_.wasCancelled) postCompletionNotification();
    }

    // A run and an undo exclude each other.
    [[nodiscard]] bool claimEngine() {
        bool isClaimed = false;
        context_.port.hop([&isClaimed](MainActorState& main) {
            if (main.published.state().isRunning) return;
            main.published.setRunning(true);
            main.published.resetPublishedState();
            isClaimed = true;
        });
        return isClaimed;
    }

    void release() {
        context_.port.post([](MainActorState& main) {
            main.cancellationToken.reset();
            main.published.setRunning(false);
        });
    }

    // Linux has no grants for single folders: every folder counts as granted.
    void logSetup() {
        const auto& sources = context_.request.sources;
        for (std::size_t i = 0; i < sources.size(); ++i) {
            const bool exists = disk().statusFollowingLinks(sources[i]).has_value();
            context_.appendLog(fmt::format("⚙ Source {}/{}: {}", i + 1, sources.size(), sources[i]));
            context_.appendLog("  scoped access: true");
            context_.appendLog(fmt::format("  exists: {}", exists));
        }
        context_.appendLog("⚙ Dest URL:   " + dest());
        context_.appendLog("⚙ Dest   scoped access granted: true");
    }

    [[nodiscard]] std::unordered_set<std::string> readResumeSet() {
        std::unordered_set<std::string> skipPaths;
        if (!options().resumeFromManifest) return skipPaths;
        auto manifest = loadNewestManifest(disk(), dest());
        if (!manifest) return skipPaths;
        for (auto& entry : manifest->entries)
            skipPaths.insert(std::move(entry.source));
        context_.appendLog(
            fmt::format("Resuming: skipping {} already-processed files from last run", skipPaths.size()));
        return skipPaths;
    }

    // False when there is nothing to do.
    [[nodiscard]] bool scan(const std::unordered_set<std::string>& skipPaths) {
        const ScanReports reports{
            .filesFound =
                [&](std::size_t count) { context_.publishStatus(fmt::format("Scanning… {} files found", count)); },
            .log = [&](std::string line) { context_.appendLog(std::move(line)); }};
        auto result = scanSources(disk(), context_.request.sources, options(), skipPaths, reports);
        state_.files = std::move(result.files);
        state_.bytesMeasured = result.fileSizes.total();
        if (state_.files.empty()) {
            const auto sourceCount = context_.request.sources.size();
            context_.appendLog(fmt::format("No files found under {} source folder(s)", sourceCount));
            return false;
        }
        publishScan(result.breakdown);
        return true;
    }

    void publishScan(const MediaBreakdown& breakdown) {
        context_.port.hop([breakdown, count = static_cast<int>(state_.files.size())](MainActorState& main) {
            main.published.set(PublishedField::mediaBreakdown, &PublishedState::mediaBreakdown, breakdown);
            main.published.set(PublishedField::totalFilesScanned, &PublishedState::totalFilesScanned, count);
        });
    }

    // What it finds stops nothing: the user is told, and the run goes on.
    void checkIntegrity() {
        if (options().storageIsNetwork) {
            context_.appendLog("⏭ Integrity check skipped — NAS storage mode selected");
            return;
        }
        context_.publishStatus("Checking integrity...");
        const IntegritySubject subject{state_.files, state_.bytesMeasured, dest()};
        const auto report = runIntegrityCheck(disk(), subject, options(), context_.stop);
        context_.port.hop([report](MainActorState& main) {
            main.published.set(PublishedField::integrityReport, &PublishedState::integrityReport, report);
        });
        for (auto& line : integrityLines(report))
            context_.appendLog(std::move(line));
    }

    void findPairs() {
        if (!options().keepRawJpegPairs && !options().moveSidecars) return;
        auto found = detectPairs(pathsOf(state_.files));
        state_.sidecarsByPath = std::move(found.sidecarsByPath);
        context_.port.hop([pairs = found.pairs](MainActorState& main) {
            main.published.set(PublishedField::rawJpegPairs, &PublishedState::rawJpegPairs, pairs);
        });
        if (found.pairs >= 1)
            context_.appendLog(fmt::format("✓ Found {} RAW+JPEG pair(s) — will keep together", found.pairs));
    }

    [[nodiscard]] static std::vector<std::string_view> pathsOf(const std::vector<TaggedFile>& files) {
        std::vector<std::string_view> paths;
        paths.reserve(files.size());
        for (const auto& file : files)
            paths.emplace_back(file.path);
        return paths;
    }

    // Elapsed time and rates count from here, so the scan and the integrity check are not in them.
    void begin() {
        context_.appendLog(fmt::format("Total files: {}", state_.files.size()));
        state_.startTime = context_.services.clock.steadyNow();
        state_.manifest.runID = dateString(context_.services.clock.now(), "yyyy-MM-dd'T'HH:mm:ss");
        state_.manifest.sourceRoot = fmt::format("{}", fmt::join(context_.request.sources, "|"));
        state_.manifest.destRoot = dest();
    }

    void processFiles() {
        FileLoop(context_, state_, readRenameRules()).run();
        context_.log.flushLog(true);
        context_.port.hop([stats = state_.libraryStats](MainActorState& main) {
            main.published.set(PublishedField::libraryStats, &PublishedState::libraryStats, stats);
        });
    }

    [[nodiscard]] std::vector<FolderRenameRule> readRenameRules() {
        std::vector<FolderRenameRule> rules;
        context_.port.hop([&rules](MainActorState& main) { rules = main.renameRules; });
        return rules;
    }

    void finish() {
        if (!options().dryRun && !state_.manifest.entries.empty()) {
            const auto name = saveManifest(disk(), state_.manifest, dest(), context_.services.clock.now());
            context_.appendLog("Undo manifest saved: " + name);
        }
        reportDuplicates(context_, state_);
        if (options().usePerceptualHash && !state_.perceptualBuckets.empty()) reportNearDuplicates(context_, state_);
        if (options().dryRun) leavePreviewPlan();
    }

    void leavePreviewPlan() {
        std::vector<PlanRow> rows;
        context_.port.hop([&rows](MainActorState& main) { rows = main.published.state().previewRows; });
        const auto path = joinPath(dest(), kPreviewPlanName);
        writePreviewPlan(disk(), rows, path);
        context_.appendLog("Preview plan written: " + path);
    }

    void logSummary() {
        RunSummary summary{.processed = state_.processed,
                           .total = state_.files.size(),
                           .bytes = state_.byteSum,
                           .elapsed = elapsed(),
                           .storageIsNetwork = options().storageIsNetwork};
        context_.port.hop([&summary](MainActorState& main) {
            summary.duplicates = main.published.state().duplicateDestPaths.size();
            summary.verifyFailures = main.published.state().verifyFailures;
        });
        for (auto& line : summaryLines(summary, state_.libraryStats))
            context_.appendLog(std::move(line));
        context_.log.flushLog(true);
    }

    void publishOutcome() {
        const double seconds = elapsed();
        const double rate = seconds > 0 ? static_cast<double>(state_.byteSum) / seconds : 0;
        context_.port.hop([rate, bytes = state_.byteSum, wasCancelled = state_.wasCancelled](MainActorState& main) {
            main.published.setStatus(wasCancelled ? "Cancelled" : "Done");
            if (!wasCancelled) main.published.setProgress(1.0);
            main.published.set(PublishedField::bytesProcessed, &PublishedState::bytesProcessed, bytes);
            main.published.set(PublishedField::bytesPerSecond, &PublishedState::bytesPerSecond, rate);
        });
    }

    void postCompletionNotification() {
        context_.services.notifications.notify(notificationTitle(options().dryRun),
                                               notificationBody(state_.files.size()));
    }

    [[nodiscard]] double elapsed() const {
        return std::chrono::duration<double>(context_.services.clock.steadyNow() - state_.startTime).count();
    }

    [[nodiscard]] FileSystem& disk() const { return context_.services.fileSystem; }
    [[nodiscard]] const Options& options() const { return context_.options(); }
    [[nodiscard]] const std::string& dest() const { return context_.request.dest; }

    const RunContext& context_;
    RunState state_;
};

}  // namespace

void runPipeline(const RunContext& context) {
    refreshLocalZone();
    RunPipeline(context).run();
}

}  // namespace vellomar
