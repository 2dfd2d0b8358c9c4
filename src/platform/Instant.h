// A point in time, absolute. Wall clocks and zones are the business of LocalTime.
#pragma once

#include <chrono>
#include <cmath>
#include <cstdint>

namespace vellomar {

// Microseconds since 1970-01-01T00:00:00Z. The unit leaves room for every year that a file can claim; nanoseconds
// would overflow in 2262.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

[[nodiscard]] constexpr Instant instantFromUnixSeconds(std::int64_t seconds) {
    return Instant(std::chrono::seconds(seconds));
}

[[nodiscard]] inline Instant instantFromUnixSeconds(double seconds) {
    return Instant(std::chrono::microseconds(std::llround(seconds * 1e6)));
}

// Whole seconds since 1970, rounded towards the past.
[[nodiscard]] constexpr std::int64_t wholeUnixSeconds(Instant instant) {
    return std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
}

// Seconds since 1970 with their fraction.
[[nodiscard]] inline double unixSeconds(Instant instant) {
    return std::chrono::duration<double>(instant.time_since_epoch()).count();
}

}  // namespace vellomar
