#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "engine/OrganizerEngine.h"
#include "support/EngineHarness.h"
#include "ui/desktop/EventLoopActor.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/main/EngineEvents.h"

namespace vellomar::testing {

// An engine as the application has it: its main actor is the event loop, and what it publishes comes as signals.
class LiveEngine {
public:
    [[nodiscard]] OrganizerEngine& operator*() { return *engine_; }
    [[nodiscard]] OrganizerEngine* operator->() { return engine_.get(); }
    [[nodiscard]] const PublishedState& state() const { return engine_->state(); }
    [[nodiscard]] const EngineEvents& events() const { return events_; }

    [[nodiscard]] const std::shared_ptr<OrganizerEngine>& shared() const { return engine_; }
    [[nodiscard]] MainActor& mainActor() { return mainActor_; }

    // Runs the event loop until nothing is under way.
    void waitForEnd() {
        ASSERT_TRUE(spinUntil([this] { return !state().isRunning && !engine_->hasTask(); }));
    }

    // The same for a run that was just asked for, which tells only later that it runs.
    void waitForRun() {
        ASSERT_TRUE(spinUntil([this] { return !engine_->hasTask(); }));
    }

    // Has it at work, an empty undo, until the event loop runs the next time.
    void makeBusy() { engine_->undo({}); }

private:
    EngineHarness surroundings_;  // its own engine rests
    EventLoopActor mainActor_;
    EngineEvents events_;
    std::shared_ptr<OrganizerEngine> engine_ =
        std::make_shared<OrganizerEngine>(onEventLoop(surroundings_.servicesFor({})), &events_);

    [[nodiscard]] EngineServices onEventLoop(const EngineServices& services) {
        return {mainActor_,
                services.fileSystem,
                services.clock,
                services.notifications,
                services.sleepInhibitor,
                services.userDefaults,
                services.exifTool,
                services.metadataReaders,
                services.pixelDecoderProgram};
    }
};

}  // namespace vellomar::testing
