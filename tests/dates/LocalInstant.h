#pragma once

#include "platform/LocalTime.h"

namespace vellomar::testing {

// A wall-clock reading in the zone of the moment; it must exist there.
[[nodiscard]] inline Instant local(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return strictLocalInstant({year, month, day, hour, minute, second}).value();
}

}  // namespace vellomar::testing
