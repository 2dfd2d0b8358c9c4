#include "ui/options/OptionSwitch.h"

#include <variant>

#include "settings/OptionFields.h"
#include "settings/OptionSettings.h"

namespace vellomar {
namespace {

bool Options::*memberOf(std::string_view key) {
    return std::get<bool Options::*>(optionField(key).member);
}

}  // namespace

bool isOptionOn(const SettingsStore& settings, std::string_view key) {
    return buildOptions(settings).*memberOf(key);
}

void switchOption(SettingsStore& settings, std::string_view key, bool isOn) {
    Options options;
    options.*memberOf(key) = isOn;
    saveOption(settings, options, key);
}

}  // namespace vellomar
