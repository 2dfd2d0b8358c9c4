#pragma once

#include <optional>

#include "dates/MetadataReader.h"
#include "platform/decoder/MediaMetadata.h"

namespace vellomar::ExifUtils {

// When an image was shot, going by its own metadata. The properties are tried in this order, and the first that reads
// as a date (see parseExifDate) counts:
//
//   EXIF DateTimeOriginal   when the shutter was released
//   EXIF DateTimeDigitized  when the picture became numbers
//   EXIF TIFF DateTime      when the file was last changed
//
// Nothing when none of them does. Pure; any thread.
[[nodiscard]] std::optional<ImageEXIFResult> imageDate(const ImageProperties& properties);

}  // namespace vellomar::ExifUtils
