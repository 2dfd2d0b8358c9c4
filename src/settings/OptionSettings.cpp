#include "settings/OptionSettings.h"

#include "settings/OptionFields.h"

namespace vellomar {

Options buildOptions(const SettingsStore& settings) {
    Options options;
    for (const auto& field : optionFields())
        // What cannot be the option's value leaves the default.
        if (const auto value = settings.value(field.key)) static_cast<void>(setOption(options, field, *value));
    return options;
}

void saveOption(SettingsStore& settings, const Options& options, std::string_view key) {
    settings.setValue(key, optionValue(options, optionField(key)));
}

}  // namespace vellomar
