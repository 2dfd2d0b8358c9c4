// What the values of options are called on every screen. Any thread.
#pragma once

#include <QString>

#include "engine/model/ConflictPolicy.h"
#include "engine/model/DuplicateAction.h"

namespace vellomar {

[[nodiscard]] QString conflictLabel(ConflictPolicy policy);
[[nodiscard]] QString duplicateActionLabel(DuplicateAction action);

}  // namespace vellomar
