#pragma once

#include <string_view>
#include <vector>

#include "settings/OptionsPreset.h"
#include "settings/SettingsStore.h"

namespace vellomar {

// The presets, in the order in which they were saved. Every change is kept in the settings at once. Interface thread
// only.
class PresetList {
public:
    // `settings` must outlive this. The list is empty until loadPresets().
    explicit PresetList(SettingsStore& settings) : settings_(settings) {}

    // Reads the list; where there is none that can be read, this one stays as it is.
    void loadPresets();

    [[nodiscard]] const std::vector<OptionsPreset>& presets() const { return presets_; }

    // Appends `options` under `name` without the white space around it. False, and no change, if nothing is left of it.
    bool savePreset(std::string_view name, const Options& options);

    // Nothing happens if there is none with this identity.
    void deletePreset(const Uuid& id);

    // Sets most options as the preset has them: those of copies and their metadata, and whether the storage is a
    // network's, stay as they are, and no run is resumed.
    void applyPreset(const OptionsPreset& preset);

private:
    void savePresets();

    SettingsStore& settings_;
    std::vector<OptionsPreset> presets_;
};

}  // namespace vellomar
