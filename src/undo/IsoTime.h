#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace vellomar {

// An instant in ISO 8601, in UTC and whole seconds: "2024-06-14T09:41:07Z". A fraction is dropped.
[[nodiscard]] std::string isoTimeText(Instant instant);

// Reads such a text, also with an offset ("+02:00") in place of the Z. Nothing for any other form, one with a
// fraction among them, or for a date that does not exist.
[[nodiscard]] std::optional<Instant> instantFromIsoTime(std::string_view text);

}  // namespace vellomar
