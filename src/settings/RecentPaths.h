#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/SettingsStore.h"

namespace vellomar {

// The folders that were used last, newest first, at most five. They are kept as one text, joined by "|": a path with a
// "|" in it comes back as two. Interface thread only.
[[nodiscard]] std::vector<std::string> recentSources(const SettingsStore& settings);
[[nodiscard]] std::vector<std::string> recentDests(const SettingsStore& settings);

// Puts a path at the front; one that is in the list already moves there.
void addRecentSource(SettingsStore& settings, std::string_view path);
void addRecentDest(SettingsStore& settings, std::string_view path);

}  // namespace vellomar
