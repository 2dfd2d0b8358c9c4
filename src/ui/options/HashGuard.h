#pragma once

#include <optional>

#include "engine/model/RunEstimate.h"

namespace vellomar {

// Whether to hash all files may take hours: there are more than 50,000 of them, or nobody has counted yet what lies in
// the sources. Pure; any thread.
[[nodiscard]] bool mayHashForHours(const std::optional<RunEstimate>& estimate, bool hasSources);

}  // namespace vellomar
