// The date in an XMP file: the small text that photo programs put beside an image they must not touch.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dates/DateCandidate.h"
#include "platform/FileSystem.h"

namespace vellomar::ExifUtils {

// The date in the text of an XMP file, local to the second; a fraction or a zone behind it is not seen.
//
// It stands in `xmp:CreateDate`, written as an attribute (tried first) or as an element; only the first of each kind
// counts. Nothing when neither holds a date that exists in the local zone. A text that has only
// `exif:DateTimeOriginal` gives nothing either: it is found, and then its name is taken for the date, as libraries
// were always sorted. `xmpText` may hold any bytes. Pure; any thread.
[[nodiscard]] std::optional<Instant> sidecarDate(std::string_view xmpText);

// The date from the XMP file that belongs to the image at `path`, as "XMP Sidecar". It has the image's path with "xmp"
// in place of the last extension, or behind a name that has none; no other spelling is looked for. An image that is
// itself named so is its own sidecar.
//
// Nothing when there is no such file or no date in it, when it cannot be read or is not UTF-8, when it is no regular
// file (a symlink to one will do), and when it has more than 16 MiB, as no program writes. The file is only read.
// The thread of `fileSystem`.
[[nodiscard]] std::optional<DateCandidate> sidecarCandidate(FileSystem& fileSystem, const std::string& path);

}  // namespace vellomar::ExifUtils
