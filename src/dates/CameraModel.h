#pragma once

#include <string>

#include "dates/ExifMaps.h"
#include "dates/MetadataReader.h"
#include "engine/model/Options.h"

namespace vellomar {

// The camera that a file was made with, for people to read: what ExifTool told, else what `reader` finds in the file.
// On network storage the file is not opened, but what ExifTool told still counts. kUnknownCamera when nobody knows or
// `reader` is null. The thread of `reader`.
[[nodiscard]] std::string readCameraModel(const ExifCameras& exifCameras, const std::string& path,
                                          const Options& options, MetadataReader* reader);

}  // namespace vellomar
