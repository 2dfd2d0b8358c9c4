#pragma once

#include <cstddef>
#include <span>

#include "platform/decoder/MediaMetadata.h"

namespace vellomar {

// Makes the video library ready; once for the process, before the first read.
void prepareVideoLibrary();

// The metadata of the video whose whole content is `file`; empty for bytes that are no video. Nothing is decoded.
//
// All texts stand in one format, called by the library's name for the container's demuxer: those of the container, then
// those of its tracks. A time that the library itself made readable, "2021-03-04T05:06:07.000000Z", comes as
// "2021-03-04T05:06:07+0000".
//
// The item that means the creation date is Apple's own, which knows the zone in which the video was shot; else the
// container's date; else its time of creation.
//
// Does not throw, but what it calls may crash on hostile bytes: it belongs into the decoder's process.
[[nodiscard]] VideoMetadata readVideoMetadata(std::span<const std::byte> file);

}  // namespace vellomar
