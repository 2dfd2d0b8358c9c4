#pragma once

#include <functional>
#include <string>

namespace vellomar::testing {

// What `work` returns when it runs as a user who is not root, since root may do anything to any file. It runs in a
// process of its own. Fails the test when that process dies.
[[nodiscard]] std::string resultAsUnprivileged(const std::function<std::string()>& work);

}  // namespace vellomar::testing
