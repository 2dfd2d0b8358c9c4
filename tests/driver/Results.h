// The core's values as the engine driver answers them.
#pragma once

#include <optional>
#include <string>

#include "dates/DateCandidate.h"
#include "dates/MetadataReader.h"
#include "engine/PublishedState.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/RunEstimate.h"
#include "platform/BytesJson.h"
#include "platform/Error.h"
#include "undo/UndoManifest.h"

namespace vellomar::driver {

// A whole number of seconds where the instant is one.
[[nodiscard]] Json jsonOf(Instant instant);
[[nodiscard]] Json jsonOf(const DateCandidate& candidate);
[[nodiscard]] Json jsonOf(const ImageEXIFResult& result);
[[nodiscard]] Json jsonOf(const DecisionResult& decision);
[[nodiscard]] Json jsonOf(const UndoManifest& manifest);
[[nodiscard]] Json jsonOf(const IntegrityReport& report);
[[nodiscard]] Json jsonOf(const RunEstimate& estimate);
[[nodiscard]] Json jsonOf(const PublishedState& state);
[[nodiscard]] Json jsonOf(const Error& error);
[[nodiscard]] inline Json jsonOf(const std::string& text) {
    return text;
}
[[nodiscard]] inline Json jsonOf(int number) {
    return number;
}

// Null for an absent value.
template <typename Value>
[[nodiscard]] Json jsonOf(const std::optional<Value>& value) {
    return value ? jsonOf(*value) : Json(nullptr);
}

}  // namespace vellomar::driver
