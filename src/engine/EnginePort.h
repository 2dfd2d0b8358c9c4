#pragma once

#include <memory>
#include <vector>

#include "engine/CancellationToken.h"
#include "engine/Publication.h"
#include "naming/FolderRenameRule.h"
#include "platform/MainActorPort.h"

namespace vellomar {

// What of an engine belongs to the main actor.
struct MainActorState {
    Publication published;
    std::vector<FolderRenameRule> renameRules;
    std::shared_ptr<CancellationToken> cancellationToken;  // no run makes one; cancelling goes through the run's task
};

// A run's way to its engine's state.
using EnginePort = MainActorPort<MainActorState>;

}  // namespace vellomar
