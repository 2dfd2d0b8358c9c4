// A moment for tests whose dates may be any: 2024-06-14T09:41:07Z.
#pragma once

#include <cstdint>

#include "platform/Instant.h"

namespace vellomar {

inline constexpr std::int64_t kMorningInUnixSeconds = 1'718'358'067;
inline constexpr Instant kMorning = instantFromUnixSeconds(kMorningInUnixSeconds);

}  // namespace vellomar
