#pragma once

#include "engine/RunContext.h"

namespace vellomar {

// Where duplicates go that are to be moved out of the way: below the destination.
inline constexpr const char* kDuplicatesFolderName = "_Duplicates";

// Tells of the files of a run that hold the same bytes and publishes them, then leaves a report in a dry run, and does
// in a real one with the duplicates what the options say. Where there are none, what is published stays as it is. On
// the run's thread.
void reportDuplicates(const RunContext& context, const RunState& state);

}  // namespace vellomar
