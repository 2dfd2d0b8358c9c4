#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/model/Options.h"
#include "platform/Uuid.h"

namespace vellomar {

// Options under a name that the user gave them. Names may repeat. Two options are not of a preset, since they describe
// one run and one machine: resumeFromManifest and storageIsNetwork; here they have their defaults.
struct OptionsPreset {
    Uuid id = Uuid::random();
    std::string name;
    Options options;

    bool operator==(const OptionsPreset&) const = default;
};

// The list as JSON: an array of objects with "id", "name" and each option by its own name.
[[nodiscard]] std::string presetsText(const std::vector<OptionsPreset>& presets);

// The reverse. Nothing for anything but such a list, whole: one preset that lacks an option makes all of them
// unreadable. Unknown members do not matter.
[[nodiscard]] std::optional<std::vector<OptionsPreset>> presetsFrom(std::string_view text);

}  // namespace vellomar
