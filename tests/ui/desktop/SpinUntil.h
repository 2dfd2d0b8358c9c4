#pragma once

#include <functional>

namespace vellomar::testing {

// Runs the event loop until `condition` holds, which is asked again and again; false if it does not come to hold in a
// time that is ample on a busy machine.
[[nodiscard]] bool spinUntil(const std::function<bool()>& condition);

}  // namespace vellomar::testing
