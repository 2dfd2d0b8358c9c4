#pragma once

#include "engine/model/Options.h"
#include "settings/SettingsStore.h"

namespace vellomar {

// The options as they are set now; the default for each that was never set, or is set to what it cannot be.
[[nodiscard]] Options buildOptions(const SettingsStore& settings);

// Sets the option with this key (see OptionFields.h) to its value in `options`.
void saveOption(SettingsStore& settings, const Options& options, std::string_view key);

}  // namespace vellomar
