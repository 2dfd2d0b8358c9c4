#pragma once

#include <cstdint>
#include <string>

namespace vellomar {

// "1023 B", "1.0 KB", "1.0 MB", "1.00 GB"; gigabytes are the largest unit.
[[nodiscard]] std::string formatBytes(std::int64_t bytes);

// Seconds as "59s", "1m 30s" or "1h 01m 01s"; a fraction is cut off. `seconds` must be finite: anything else is a
// fault of the program, and ends it.
[[nodiscard]] std::string formatDuration(double seconds);

// Seconds left, in less detail: "59s", "1m 30s" or "1h 01m". As above otherwise.
[[nodiscard]] std::string formatEta(double seconds);

}  // namespace vellomar
