#include "engine/UndoRun.h"

#include <utility>

#include <fmt/format.h>

#include "undo/UndoExecution.h"

namespace vellomar {
namespace {

std::string outcomeText(const UndoCounters& counters) {
    return fmt::format("Undo complete — reversed: {}  skipped: {}  failed: {}", counters.reversed, counters.skipped,
                       counters.failed);
}

UndoCounters execute(const UndoManifest& manifest, const EngineServices& services, EnginePort& port, RunLog& log) {
    const auto awake = services.sleepInhibitor.inhibit("Undoing a run");
    return executeUndo(services.fileSystem, manifest,
                       {.log = [&](std::string line) { log.appendLog(std::move(line)); },
                        .progress =
                            [&](double fraction) {
                                port.post([fraction](MainActorState& main) { main.published.setProgress(fraction); });
                            }});
}

}  // namespace

void publishUndoStart(Publication& published, const UndoRun& undo) {
    published.setRunning(true);
    published.setStatus(fmt::format("Undoing {} operations...", undo.manifest.entries.size()));
    published.setProgress(0);
}

void runUndo(const UndoRun& undo, const EngineServices& services, EnginePort& port, RunLog& log) {
    const auto counters = execute(undo.manifest, services, port, log);
    log.flushLog(true);
    port.post([text = outcomeText(counters), whenFinished = undo.whenFinished](MainActorState& main) {
        main.published.setRunning(false);
        main.published.setStatus(text);
        main.published.setProgress(1.0);
        if (whenFinished) whenFinished();
    });
}

}  // namespace vellomar
