#pragma once

#include <string>

namespace vellomar {

// Whether the user's desktop names a program for the URIs of a scheme ("geo", "https"). Reads its lists of programs,
// which takes a millisecond or a few. Any thread.
[[nodiscard]] bool hasProgramForScheme(const std::string& scheme);

}  // namespace vellomar
