#include "settings/PresetList.h"

#include <array>
#include <utility>

#include "platform/Text.h"
#include "settings/OptionSettings.h"
#include "settings/SettingsKeys.h"

namespace vellomar {
namespace {

// What loading a preset sets, in this order.
constexpr std::array<std::string_view, 18> kAppliedOptions = {
    "opt_dryRun",        "opt_moveOriginals",  "opt_parseMonthWords", "opt_parseNameDates", "opt_useExifImages",
    "opt_useExifVideo",  "opt_conflictPolicy", "opt_computeHash",     "opt_namingStyle",    "opt_customFormat",
    "opt_includeImages", "opt_includeVideos",  "opt_includeOther",    "opt_syncFSDates",    "opt_duplicateAction",
    "opt_resume",        "opt_pHash",          "opt_pHashThreshold",
};

Options withoutRunAndMachine(Options options) {
    const Options defaults;
    options.resumeFromManifest = defaults.resumeFromManifest;
    options.storageIsNetwork = defaults.storageIsNetwork;
    return options;
}

}  // namespace

void PresetList::loadPresets() {
    const auto text = settings_.bytes(keys::kSavedPresets);
    if (!text) return;
    if (auto presets = presetsFrom(*text)) presets_ = *std::move(presets);
}

bool PresetList::savePreset(std::string_view name, const Options& options) {
    const auto words = trimmed(name);
    if (words.empty()) return false;
    presets_.push_back({Uuid::random(), std::string(words), withoutRunAndMachine(options)});
    savePresets();
    return true;
}

void PresetList::deletePreset(const Uuid& id) {
    if (std::erase_if(presets_, [&](const OptionsPreset& preset) { return preset.id == id; }) > 0) savePresets();
}

void PresetList::applyPreset(const OptionsPreset& preset) {
    for (const auto key : kAppliedOptions)
        saveOption(settings_, preset.options, key);
}

void PresetList::savePresets() {
    settings_.setBytes(keys::kSavedPresets, presetsText(presets_));
}

}  // namespace vellomar
