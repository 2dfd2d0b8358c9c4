#pragma once

#include <string>

#include "platform/Instant.h"

namespace vellomar {

// The local time of day with seconds, as the user's language writes it: "3:04:05 PM". Any thread.
[[nodiscard]] std::string timeOfDayText(Instant instant);

}  // namespace vellomar
