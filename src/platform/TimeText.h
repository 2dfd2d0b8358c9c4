// Points in time as a language writes them. Any thread.
#pragma once

#include <string>

#include "platform/Instant.h"

namespace vellomar {

// The local time of day with seconds, as the language of the environment writes it: "3:04:05 PM".
[[nodiscard]] std::string timeOfDayText(Instant instant);

// By a clock that shows UTC: the date in the medium form of the language of `locale` ("en_US") and the time in its
// short one: "Jun 14, 2024, 11:40 AM".
[[nodiscard]] std::string utcDateAndTimeText(Instant instant, const std::string& locale);

}  // namespace vellomar
