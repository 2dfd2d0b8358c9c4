#pragma once

#include "dates/ExifTool.h"
#include "platform/LinuxFileSystem.h"
#include "platform/decoder/PixelDecoder.h"
#include "support/DecoderProgram.h"

namespace vellomar::driver {

// What lives as long as the driver: as in the application, ExifTool is looked for once, and one decoder of pixels goes
// from file to file.
struct Surroundings {
    LinuxFileSystem fileSystem;
    ExifUtils::ExifTool exifTool{fileSystem};
    PixelDecoder pixels{testing::pixelDecoderProgram()};
};

}  // namespace vellomar::driver
