#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "engine/EngineObserver.h"
#include "engine/EnginePort.h"
#include "engine/EngineServices.h"
#include "engine/EstimateTasks.h"
#include "engine/PublishedState.h"
#include "engine/RunLog.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/Options.h"
#include "engine/model/RunEstimate.h"
#include "engine/model/TaggedFile.h"
#include "naming/FolderRenameRule.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// The one long-lived object that performs runs and takes them back. It belongs to the main actor: it is made, called,
// observed and destroyed there, and its published state changes nowhere else; appendLog() alone may be called from any
// thread. The work itself is done on a thread of its own, one run or undo at a time.
//
// Destroying the engine during a run cancels the run and waits for the file under way; during an undo, which nothing
// stops, it waits for the end of the undo. An estimate under way is given up: what waits is one call to the disk at
// most, and nobody gets its result.
class OrganizerEngine {
public:
    using TaggedFile = vellomar::TaggedFile;
    using DecisionResult = vellomar::DecisionResult;
    using RunEstimate = vellomar::RunEstimate;

    // `services` and `observer` (which may be null) must outlive the engine.
    explicit OrganizerEngine(const EngineServices& services, EngineObserver* observer = nullptr);
    ~OrganizerEngine();
    OrganizerEngine(const OrganizerEngine&) = delete;
    OrganizerEngine& operator=(const OrganizerEngine&) = delete;

    [[nodiscard]] const PublishedState& state() const { return main_.published.state(); }

    // The rules that the next run takes up, right before its first decision. Their order is the order of trial.
    void setRenameRules(std::vector<FolderRenameRule> rules) { main_.renameRules = std::move(rules); }

    // Sorts what lies in `sources` into `dest`, all absolute paths, as `options` say; a dry run only plans. Returns at
    // once: what comes of it is published. Does nothing while another run lives, nor during an undo.
    void startRun(const std::vector<std::string>& sources, const std::string& dest, const Options& options);

    // Asks the run, if there is one, to end behind the file under way. Does not stop an undo.
    void cancelRun();

    // Takes back what a run did, newest first, whatever has become of it since: a file that changed is left alone.
    // Returns at once with isRunning, statusText and progress set; `whenFinished` (which may be empty) is called on
    // the main actor when the outcome is published. While isRunning is true already, for a run or another undo, this
    // does nothing at all and `whenFinished` is never called; nor is it when the engine goes first.
    void undo(UndoManifest manifest, std::function<void()> whenFinished = {});

    // Counts what lies in `sources`, absolute paths, and estimates a run over it with `options`. Returns at once;
    // `done` gets the estimate later, on the main actor. It has nothing to do with a run, which may be under way, and
    // publishes nothing. Several may be asked for; each gets its answer, in the order in which the walks end.
    void estimateRun(const std::vector<std::string>& sources, const Options& options,
                     std::function<void(const RunEstimate&)> done);

    // Whether the thread of a run lives.
    [[nodiscard]] bool hasTask() const { return currentTask_.has_value(); }

    // Adds a line to the activity log. Any thread.
    void appendLog(std::string line) { log_->appendLog(std::move(line)); }

private:
    void clearTask() { currentTask_.reset(); }

    const EngineServices services_;
    MainActorState main_;
    std::shared_ptr<EnginePort> port_;
    std::shared_ptr<RunLog> log_;
    std::optional<std::jthread> currentTask_;
    std::jthread undoThread_;  // of the last undo, ended or not
    EstimateTasks estimates_;
};

}  // namespace vellomar
