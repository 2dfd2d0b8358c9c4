// The wall clock of the machine's zone. `TZ` counts first, then the system's zone.
#pragma once

#include <optional>

#include "platform/Instant.h"

namespace vellomar {

// A reading of the wall clock in the Gregorian calendar. Plain numbers: nothing here promises that the reading exists.
struct CivilTime {
    int year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;   // 0 to 23
    int minute = 0;
    int second = 0;

    bool operator==(const CivilTime&) const = default;
};

// What the wall clock shows at `instant`; fractions of a second are dropped towards the past. Any thread.
[[nodiscard]] CivilTime localCivilTime(Instant instant);

// Seconds that the local zone is ahead of UTC at `instant`. Any thread.
[[nodiscard]] int localUtcOffset(Instant instant);

// The instant at which the wall clock shows `civil`. Nothing for a reading that never happens: February 30, hour 24,
// or the hour that is skipped when clocks go forward. A reading that happens twice, when clocks go back, means the
// first of the two. Any thread.
[[nodiscard]] std::optional<Instant> strictLocalInstant(const CivilTime& civil);

// As above, but a reading that never happens is moved on: February 31 is March 3 (or 2), and a skipped hour is the
// same distance behind the gap. Any thread.
[[nodiscard]] Instant lenientLocalInstant(const CivilTime& civil);

// Takes notice of a zone that was changed since the process started. Any thread.
void refreshLocalZone();

}  // namespace vellomar
