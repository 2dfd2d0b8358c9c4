#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "engine/CancellationToken.h"
#include "engine/Publication.h"
#include "naming/FolderRenameRule.h"
#include "platform/MainActor.h"

namespace vellomar {

// What of an engine belongs to the main actor.
struct MainActorState {
    Publication published;
    std::vector<FolderRenameRule> renameRules;
    std::shared_ptr<CancellationToken> cancellationToken;  // no run makes one; cancelling goes through the run's task
};

// A run's way to its engine's state, over the main actor and for no longer than the engine lives. Kept alive by both.
class EnginePort : public std::enable_shared_from_this<EnginePort> {
public:
    using Work = std::function<void(MainActorState&)>;

    // `state` must stay until close().
    EnginePort(MainActor& mainActor, MainActorState& state) : mainActor_(mainActor), state_(&state) {}

    // Has `work` done on the main actor and returns when it is. False if the engine went first: then the work is not
    // done, now or later. From any thread but the main actor's own.
    bool hop(Work work);

    // As above without waiting. From any thread. What is posted and hopped is done in the order of the calls.
    void post(Work work);

    // Whether the engine has gone. From any thread.
    [[nodiscard]] bool isClosed();

    // The engine goes: nobody waits for it any longer. Main actor only.
    void close();

private:
    MainActor& mainActor_;
    MainActorState* state_;  // main actor only; null once closed
    std::mutex lock_;
    std::condition_variable changed_;
    bool closed_ = false;  // under lock_
};

}  // namespace vellomar
