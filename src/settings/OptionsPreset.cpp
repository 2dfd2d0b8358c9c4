#include "settings/OptionsPreset.h"

#include <utility>

#include "settings/JsonValues.h"
#include "settings/OptionFields.h"

namespace vellomar {
namespace {

bool isOfPreset(const OptionField& field) {
    return field.name != "resumeFromManifest" && field.name != "storageIsNetwork";
}

Json jsonOf(const OptionsPreset& preset) {
    Json object = {{"id", preset.id.text()}, {"name", preset.name}};
    for (const auto& field : optionFields())
        if (isOfPreset(field)) object[std::string(field.name)] = optionValue(preset.options, field);
    return object;
}

std::optional<OptionsPreset> presetFrom(const Json& object) {
    const auto id = uuidMember(object, "id");
    auto name = textMember(object, "name");
    if (!id || !name) return std::nullopt;
    OptionsPreset preset{*id, *std::move(name), {}};
    for (const auto& field : optionFields()) {
        if (!isOfPreset(field)) continue;
        const auto* value = memberOf(object, std::string(field.name).c_str());
        if (value == nullptr || !setOption(preset.options, field, *value)) return std::nullopt;
    }
    return preset;
}

}  // namespace

std::string presetsText(const std::vector<OptionsPreset>& presets) {
    Json list = Json::array();
    for (const auto& preset : presets)
        list.push_back(jsonOf(preset));
    return jsonText(list);
}

std::optional<std::vector<OptionsPreset>> presetsFrom(std::string_view text) {
    return wholeListFrom<OptionsPreset>(text, presetFrom);
}

}  // namespace vellomar
