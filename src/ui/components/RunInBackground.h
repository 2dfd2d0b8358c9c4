#pragma once

#include <functional>

namespace vellomar {

// Runs `work` on some other thread and `then` on the interface thread afterwards. What a `then` stands for may be gone
// by that time: it has to look. In tests both may run at once.
using RunInBackground = std::function<void(std::function<void()> work, std::function<void()> then)>;

}  // namespace vellomar
