#pragma once

#include <string>
#include <string_view>

#include "platform/Instant.h"
#include "platform/LocalTime.h"

namespace vellomar {

// `date` written as `pattern` says, in local time and in English whatever the machine's language. All date texts of
// the program come from here. A pattern is Unicode's: letters y M d E a H h m s S Z stand for fields, repeated for
// their width ("yyyy", "MM", "MMMM" for "August", "EEEE" for "Monday"); text in single quotes stands for itself, two
// single quotes for one; other characters stand for themselves. "Z" is the zone as "+0200". Any thread.
[[nodiscard]] std::string dateString(Instant date, std::string_view pattern);

// "yyyy-MM-dd HH:mm:ss" of a wall-clock reading: the form that every explanation of a date uses.
[[nodiscard]] std::string dateTimeText(const CivilTime& civil);

// "January" to "December" for 1 to 12.
[[nodiscard]] std::string_view monthName(int month);

}  // namespace vellomar
