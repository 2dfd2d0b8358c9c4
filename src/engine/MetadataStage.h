#pragma once

#include "engine/RunContext.h"

namespace vellomar {

// Has ExifTool read the dates and cameras of all images and videos that it may read, in batches, before the first file
// is decided. Fills exifDates and exifCameras of `state`; what could not be read is in neither. Images and videos are
// read side by side, by one process each. A cancelled run waits here until both have come to their end, as a batch
// that was begun is finished, and those behind it are read as well; only when the engine goes no further one is begun.
// Blocks; on the run's thread.
void readMetadataInBatches(const RunContext& context, RunState& state);

}  // namespace vellomar
