#pragma once

#include "dates/ExifTool.h"
#include "platform/LinuxFileSystem.h"

namespace vellomar::driver {

// What lives as long as the driver: as in the application, ExifTool is looked for once.
struct Surroundings {
    LinuxFileSystem fileSystem;
    ExifUtils::ExifTool exifTool{fileSystem};
};

}  // namespace vellomar::driver
