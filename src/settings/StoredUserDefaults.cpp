#include "settings/StoredUserDefaults.h"

#include "settings/SettingsKeys.h"

namespace vellomar {

StoredUserDefaults::StoredUserDefaults(const SettingsStore& settings)
    : secretFloppyMode_(settings.boolean(keys::kSecretFloppyMode)) {
    connect(&settings, &SettingsStore::changed, this, [this, &settings](const QString& key) {
        if (key.toStdString() == keys::kSecretFloppyMode) secretFloppyMode_ = settings.boolean(keys::kSecretFloppyMode);
    });
}

}  // namespace vellomar
