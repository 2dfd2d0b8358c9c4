#include "engine/OrganizerEngine.h"

#include <utility>

#include "engine/RunPipeline.h"
#include "engine/UndoRun.h"
#include "platform/Path.h"
#include "platform/ThreadPriority.h"

namespace vellomar {
namespace {

std::vector<std::string> withoutTrailingSlashesEach(const std::vector<std::string>& paths) {
    std::vector<std::string> plain;
    plain.reserve(paths.size());
    for (const auto& path : paths)
        plain.push_back(withoutTrailingSlashes(path));
    return plain;
}

}  // namespace

OrganizerEngine::OrganizerEngine(const EngineServices& services, EngineObserver* observer)
    : services_(services),
      main_{Publication(observer), {}, nullptr},
      port_(std::make_shared<EnginePort>(services.mainActor, main_)),
      log_(std::make_shared<RunLog>(services.mainActor, port_, observer)),
      estimates_(services.fileSystem, port_) {}

OrganizerEngine::~OrganizerEngine() {
    // In this order: a run that waits for the main actor, which is busy here, must stop waiting before it is joined.
    port_->close();
    estimates_.requestStop();
    if (currentTask_) currentTask_->request_stop();
    clearTask();
    undoThread_ = {};
}

void OrganizerEngine::startRun(const std::vector<std::string>& sources, const std::string& dest,
                               const Options& options) {
    if (currentTask_) return;
    currentTask_.emplace([this, port = port_, log = log_, services = services_,
                          request = RunRequest{withoutTrailingSlashesEach(sources), withoutTrailingSlashes(dest),
                                               options}](const std::stop_token& stop) {
        lowerPriorityOfThisThread();
        runPipeline({request, services, *port, *log, stop});
        // Behind all that the run posted. `this` is there whenever the port still lets work through.
        port->post([this](MainActorState&) { clearTask(); });
    });
}

void OrganizerEngine::undo(UndoManifest manifest, std::function<void()> whenFinished) {
    if (main_.published.state().isRunning) return;
    UndoRun undo{std::move(manifest), std::move(whenFinished)};
    publishUndoStart(main_.published, undo);
    // The thread of an earlier undo has published its outcome and is at its end, so that joining it takes no time.
    undoThread_ = std::jthread([port = port_, log = log_, services = services_, undo = std::move(undo)] {
        lowerPriorityOfThisThread();
        runUndo(undo, services, *port, *log);
    });
}

void OrganizerEngine::cancelRun() {
    if (main_.cancellationToken) main_.cancellationToken->cancel();
    if (currentTask_) currentTask_->request_stop();
    port_->post([](MainActorState& main) { main.published.setStatus("Cancelling..."); });
}

void OrganizerEngine::estimateRun(const std::vector<std::string>& sources, const Options& options,
                                  std::function<void(const RunEstimate&)> done) {
    estimates_.start(withoutTrailingSlashesEach(sources), options, std::move(done));
}

}  // namespace vellomar
