#pragma once

#include <functional>

#include "engine/EnginePort.h"
#include "engine/EngineServices.h"
#include "engine/RunLog.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// One whole undo, as runPipeline() is one whole run.
struct UndoRun {
    UndoManifest manifest;
    std::function<void()> whenFinished;  // may be empty
};

// Tells the world that the undo is under way. Main actor only; before runUndo().
void publishUndoStart(Publication& published, const UndoRun& undo);

// The undo itself: returns when it has ended, with its lines on their way to the published ones and its outcome behind
// them; whenFinished is called on the main actor right behind that. It never waits for the main actor. On the undo's
// own thread.
void runUndo(const UndoRun& undo, const EngineServices& services, EnginePort& port, RunLog& log);

}  // namespace vellomar
