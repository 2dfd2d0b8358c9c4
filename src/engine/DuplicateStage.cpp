#include "engine/DuplicateStage.h"

#include <map>
#include <set>
#include <span>
#include <utility>

#include <fmt/format.h>

#include "duplicates/DuplicateReport.h"
#include "engine/DuplicateRemoval.h"
#include "platform/AtomicWrite.h"
#include "platform/FileMove.h"
#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr std::size_t kReportedHashLength = 12;

class DuplicateStage {
public:
    DuplicateStage(const RunContext& context, const RunState& state) : context_(context), state_(state) {}

    void run() {
        const auto groups = findExactDuplicates(state_.hashGroups, [this](auto path) { return dateOf(path); });
        if (groups.empty()) {
            context_.appendLog("No duplicates detected.");
            return;
        }
        logGroups(groups);
        publish(groups);
        if (context_.options().dryRun) {
            leaveReport(groups);
            return;
        }
        if (context_.options().duplicateAction != DuplicateAction::log) actOn(groups);
        context_.appendLog("Duplicate report generation skipped (not a dry run).");
    }

private:
    [[nodiscard]] std::optional<Instant> dateOf(std::string_view path) const {
        const auto placed = state_.usedDestPaths.find(std::string(path));
        if (placed == state_.usedDestPaths.end()) return std::nullopt;
        return placed->second.fileDate;
    }

    void logGroups(const std::vector<ExactDuplicates>& groups) const {
        context_.appendLog(fmt::format("Found {} duplicate group(s).", groups.size()));
        for (const auto& group : groups) {
            context_.appendLog(fmt::format("Duplicate group sha={} count={} canonical='{}'",
                                           group.sha256.substr(0, kReportedHashLength), group.paths.size(),
                                           group.canonical()));
            for (const auto duplicate : group.duplicates())
                context_.appendLog(fmt::format("  dup: {}", duplicate));
        }
    }

    void publish(const std::vector<ExactDuplicates>& groups) const {
        std::vector<DuplicateGroup> published;
        std::set<std::string> paths;
        for (const auto& group : groups) {
            const auto duplicates = group.duplicates();
            published.push_back({std::string(group.canonical()), {duplicates.begin(), duplicates.end()}});
            paths.insert(duplicates.begin(), duplicates.end());
        }
        context_.port.hop([&published, &paths](MainActorState& main) {
            main.published.set(PublishedField::duplicateGroups, &PublishedState::duplicateGroups, std::move(published));
            main.published.set(PublishedField::duplicateDestPaths, &PublishedState::duplicateDestPaths,
                               std::move(paths));
        });
    }

    void leaveReport(const std::vector<ExactDuplicates>& groups) const {
        const auto path = joinPath(dest(), kDuplicatesReportName);
        if (const auto written = writeAtomically(disk(), path, duplicatesReportText(groups)); written)
            context_.appendLog("Duplicates report written: " + path);
        else
            context_.appendLog("Failed writing duplicates report: " + written.error().description);
    }

    // One path after the other, sorted. Where two files of the run were to go under one name, it can be a duplicate in
    // several groups; it then goes if it is one of any of them.
    void actOn(const std::vector<ExactDuplicates>& groups) const {
        std::map<std::string_view, std::vector<const ExactDuplicates*>> groupsByDuplicate;
        for (const auto& group : groups)
            for (const auto duplicate : group.duplicates())
                groupsByDuplicate[duplicate].push_back(&group);
        DuplicateRemoval removal(disk(), dest(), state_);
        for (const auto& [duplicate, itsGroups] : groupsByDuplicate)
            actOn(std::string(duplicate), itsGroups, removal);
    }

    void actOn(const std::string& path, const std::vector<const ExactDuplicates*>& groups,
               DuplicateRemoval& removal) const {
        if (!removal.existsAt(path)) return;
        Expected<void> allowed;
        for (const auto* group : groups)
            if (allowed = removal.check(path, *group); allowed) break;
        if (context_.options().duplicateAction == DuplicateAction::moveToBin)
            log(path, allowed.and_then([&] { return moveToBin(path); }),
                "♻ Moved duplicate to _Duplicates: ", "⚠ Could not move duplicate: ");
        else
            log(path, allowed.and_then([&] { return disk().removeFile(path); }),
                "♻ Removed duplicate: ", "⚠ Could not remove duplicate: ");
    }

    // A folder that cannot be made is told by the move into it.
    [[nodiscard]] Expected<void> moveToBin(const std::string& path) const {
        const auto bin = joinPath(dest(), kDuplicatesFolderName);
        static_cast<void>(makeDirectories(disk(), bin));
        return moveToFreeName(disk(), path, joinPath(bin, lastPathComponent(path))).map([](const std::string&) {});
    }

    void log(const std::string& path, const Expected<void>& outcome, std::string_view success,
             std::string_view failure) const {
        if (outcome)
            context_.appendLog(fmt::format("{}{}", success, lastPathComponent(path)));
        else
            context_.appendLog(fmt::format("{}{}", failure, outcome.error().description));
    }

    [[nodiscard]] FileSystem& disk() const { return context_.services.fileSystem; }
    [[nodiscard]] const std::string& dest() const { return context_.request.dest; }

    const RunContext& context_;
    const RunState& state_;
};

}  // namespace

void reportDuplicates(const RunContext& context, const RunState& state) {
    DuplicateStage(context, state).run();
}

}  // namespace vellomar
