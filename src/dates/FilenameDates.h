#pragma once

#include <optional>
#include <string_view>

#include "dates/DateCandidate.h"
#include "platform/Instant.h"

namespace vellomar {

// The date that a camera, phone or messenger wrote into a file's name, if any.
//
// `stem` is the last path component without its last extension, as raw bytes. The shapes are tried in this order, and
// the first that yields a real date ends the search:
//
//   Filename-UnixTS      72   1691234567, or with three digits of milliseconds; in the past as seen from `now`
//   Filename-Screenshot  75   2023-08-14 at 2.30.21 PM
//   Filename-WhatsApp    73   IMG-20230814-WA0001
//   Filename-Signal      73   signal-2023-08-14-14-30-21
//   Filename             70   20230814_143021, 20230814, 2023-08-14 14.30.21
//   Filename             60   a date of any of these forms where the time could not be read
//
// A wall-clock time is local; a zone written behind it is not interpreted and costs the time, as does a prefix such as
// "IMG_". A name without a time of day means midnight. Nothing comes back for a name without a date or with one that
// does not exist (20230231). Reads no file. Pure; any thread.
[[nodiscard]] std::optional<DateCandidate> filenameCandidate(std::string_view stem, Instant now);

}  // namespace vellomar
