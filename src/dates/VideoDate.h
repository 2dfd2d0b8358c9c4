#pragma once

#include <optional>

#include "dates/DateCandidate.h"
#include "platform/decoder/MediaMetadata.h"

namespace vellomar::ExifUtils {

// When a video was shot, going by its own metadata. What reads as a date is what parseExifDate takes, and
// "2021-03-04T05:06:07+0000". The first that does counts:
//
//   AVFoundation commonCreationDate  75   the item that means the creation
//   AVFoundation IDENTIFIER          70   any text of a format with this identifier: formats in their order, then the
//                                         texts of each; what a text is about is not asked, hence the lower score
//
// Nothing when no text does. Pure; any thread.
[[nodiscard]] std::optional<DateCandidate> videoDate(const VideoMetadata& metadata);

}  // namespace vellomar::ExifUtils
