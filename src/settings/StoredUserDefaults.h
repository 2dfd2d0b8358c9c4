#pragma once

#include <QObject>
#include <atomic>

#include "platform/UserDefaults.h"
#include "settings/SettingsStore.h"

namespace vellomar {

// What the engine asks of the settings, from any thread. Made on the interface thread.
class StoredUserDefaults final : public QObject, public UserDefaults {
    Q_OBJECT

public:
    // `settings` must outlive this.
    explicit StoredUserDefaults(const SettingsStore& settings);

    [[nodiscard]] bool secretFloppyMode() const override { return secretFloppyMode_; }

private:
    std::atomic_bool secretFloppyMode_;
};

}  // namespace vellomar
