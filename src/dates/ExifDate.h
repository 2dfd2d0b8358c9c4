#pragma once

#include <optional>
#include <string_view>

#include "platform/Instant.h"

namespace vellomar::ExifUtils {

// The date in a text of the kind that cameras write: "2023:08:14 14:30:21" or "2023-08-14 14:30:21".
//
// Such a beginning is the local wall clock, whatever follows it: "+02:00" or "Z" behind it shifts nothing. A day that
// its month does not have, and an hour that clocks skip, are moved on: "2023:02:31" is March 3. A text that begins
// otherwise, or with a year before 1901, must as a whole be such a date with a zone, which then counts
// ("1900:12:31 23:59:59+0100", "2023:8:14 14:30:21Z").
//
// Nothing comes back for any other text, among them the zeros and the blanks of a clock that was never set. `text` may
// hold any bytes. The usual forms are read without allocating. Pure; any thread.
[[nodiscard]] std::optional<Instant> parseExifDate(std::string_view text);

}  // namespace vellomar::ExifUtils
