// Options that are on or off, by their keys in the settings. Interface thread only.
#pragma once

#include <string_view>

#include "settings/SettingsStore.h"

namespace vellomar {

// `key` must be that of such an option.
[[nodiscard]] bool isOptionOn(const SettingsStore& settings, std::string_view key);
void switchOption(SettingsStore& settings, std::string_view key, bool isOn);

}  // namespace vellomar
