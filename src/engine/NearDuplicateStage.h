#pragma once

#include "engine/RunContext.h"

namespace vellomar {

// Tells of the images of a run that look alike, and in a dry run leaves a report of them. Nothing is moved or removed
// on the strength of that. For runs in which an image was hashed. On the run's thread.
void reportNearDuplicates(const RunContext& context, const RunState& state);

}  // namespace vellomar
