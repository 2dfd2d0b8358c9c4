#pragma once

#include "engine/RunContext.h"

namespace vellomar {

// One whole run, from the scan to the notification. Returns when it has ended; all that it finds is published and
// logged on the way. Does nothing if the engine is busy with something else. On the run's own thread.
void runPipeline(const RunContext& context);

}  // namespace vellomar
