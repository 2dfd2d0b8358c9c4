#include "ui/options/OptionsPanelModel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "settings/OptionSettings.h"
#include "settings/SettingsKeys.h"
#include "ui/options/OptionLabels.h"
#include "ui/options/OptionRows.h"
#include "ui/options/OptionSwitch.h"

namespace vellomar {
namespace {

constexpr std::string_view kHash = "opt_computeHash";
constexpr std::string_view kStripGps = "opt_stripGPS";
constexpr std::string_view kStripAll = "opt_stripAllMeta";
constexpr std::string_view kImages = "opt_includeImages";
constexpr std::string_view kVideos = "opt_includeVideos";
constexpr std::string_view kOther = "opt_includeOther";
constexpr std::string_view kConflict = "opt_conflictPolicy";

// As they are offered: the safest first.
constexpr std::array kPolicies = {ConflictPolicy::rename, ConflictPolicy::skip, ConflictPolicy::overwrite};

}  // namespace

OptionsPanelModel::OptionsPanelModel(SettingsStore& settings, std::function<bool()> isLibraryLarge, QObject* parent)
    : QObject(parent),
      settings_(settings),
      isLibraryLarge_(std::move(isLibraryLarge)),
      basic_(basicOptionRows(), settings),
      advanced_(advancedOptionRows(), settings),
      files_(fileOptionRows(), settings) {
    connect(&settings_, &SettingsStore::changed, this, &OptionsPanelModel::changed);
}

bool OptionsPanelModel::showsAdvanced() const {
    return settings_.boolean(keys::kShowAdvanced);
}

void OptionsPanelModel::setShowsAdvanced(bool isShown) {
    settings_.setValue(keys::kShowAdvanced, isShown);
}

QStringList OptionsPanelModel::conflictLabels() {
    QStringList labels;
    for (const auto policy : kPolicies)
        labels << conflictLabel(policy);
    return labels;
}

int OptionsPanelModel::conflict() const {
    const auto policy = buildOptions(settings_).conflictPolicy;
    return static_cast<int>(std::ranges::find(kPolicies, policy) - kPolicies.begin());
}

bool OptionsPanelModel::includesImages() const {
    return isOptionOn(settings_, kImages);
}

bool OptionsPanelModel::includesVideos() const {
    return isOptionOn(settings_, kVideos);
}

bool OptionsPanelModel::includesOther() const {
    return isOptionOn(settings_, kOther);
}

bool OptionsPanelModel::lacksFileTypes() const {
    return !includesImages() && !includesVideos() && !includesOther();
}

void OptionsPanelModel::setOn(const QString& key, bool isOn) {
    const auto name = key.toStdString();
    if (name == kHash && isOn && !isOptionOn(settings_, kHash) && isLibraryLarge_()) {
        isHashAsked_ = true;
        emit changed();
        return;
    }
    if (isOn && name == kStripGps) switchOption(settings_, kStripAll, false);
    if (isOn && name == kStripAll) switchOption(settings_, kStripGps, false);
    switchOption(settings_, name, isOn);
}

void OptionsPanelModel::enableHash() {
    dismissHash();
    switchOption(settings_, kHash, true);
}

void OptionsPanelModel::dismissHash() {
    isHashAsked_ = false;
    emit changed();
}

void OptionsPanelModel::toggleImages() {
    toggle(kImages);
}

void OptionsPanelModel::toggleVideos() {
    toggle(kVideos);
}

void OptionsPanelModel::toggleOther() {
    toggle(kOther);
}

void OptionsPanelModel::chooseConflict(int policy) {
    if (policy < 0 || static_cast<std::size_t>(policy) >= kPolicies.size()) return;
    const auto chosen = kPolicies.at(static_cast<std::size_t>(policy));
    if (chosen == ConflictPolicy::overwrite && buildOptions(settings_).conflictPolicy != chosen) {
        isOverwriteAsked_ = true;
        emit changed();
        return;
    }
    setConflict(chosen);
}

void OptionsPanelModel::useOverwrite() {
    dismissOverwrite();
    setConflict(ConflictPolicy::overwrite);
}

void OptionsPanelModel::dismissOverwrite() {
    isOverwriteAsked_ = false;
    emit changed();
}

void OptionsPanelModel::setConflict(ConflictPolicy policy) {
    Options options;
    options.conflictPolicy = policy;
    saveOption(settings_, options, kConflict);
}

void OptionsPanelModel::toggle(std::string_view key) {
    switchOption(settings_, key, !isOptionOn(settings_, key));
}

}  // namespace vellomar
