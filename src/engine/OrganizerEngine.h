#pragma once

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "engine/EngineObserver.h"
#include "engine/EnginePort.h"
#include "engine/EngineServices.h"
#include "engine/PublishedState.h"
#include "engine/RunLog.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/Options.h"
#include "engine/model/RunEstimate.h"
#include "engine/model/TaggedFile.h"
#include "naming/FolderRenameRule.h"

namespace vellomar {

// The one long-lived object that performs runs. It belongs to the main actor: it is made, called, observed and
// destroyed there, and its published state changes nowhere else; appendLog() alone may be called from any thread.
// The work itself is done on a thread of its own, one run at a time.
//
// Destroying the engine during a run cancels the run and waits for the file under way.
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
    // once: what comes of it is published. Does nothing while another run lives.
    void startRun(const std::vector<std::string>& sources, const std::string& dest, const Options& options);

    // Asks the run, if there is one, to end behind the file under way.
    void cancelRun();

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
};

}  // namespace vellomar
