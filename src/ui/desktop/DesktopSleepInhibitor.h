#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/SleepInhibitor.h"

namespace vellomar {

class SleepInhibition;

// Asks the desktop portal to keep the machine awake, and where there is none the system's login service. Made and
// destroyed on the interface thread, whose event loop does the work; it must stay as long as its holds.
//
// Each hold is one of its own, so they may overlap. A hold is given before the desktop has answered: it is null only
// where there is nobody to ask. When the desktop refuses, the hold is there and does nothing.
class DesktopSleepInhibitor final : public QObject, public SleepInhibitor {
public:
    DesktopSleepInhibitor(QDBusConnection sessionBus, QDBusConnection systemBus);
    ~DesktopSleepInhibitor() override;
    DesktopSleepInhibitor(const DesktopSleepInhibitor&) = delete;
    DesktopSleepInhibitor& operator=(const DesktopSleepInhibitor&) = delete;

    [[nodiscard]] std::unique_ptr<Hold> inhibit(const std::string& reason) override;

private:
    class DesktopHold;

    void begin(std::uint64_t id, const QString& reason);
    void end(std::uint64_t id);

    QDBusConnection sessionBus_;
    QDBusConnection systemBus_;
    std::atomic<std::uint64_t> nextId_ = 0;
    std::map<std::uint64_t, SleepInhibition*> inhibitions_;  // those that are held, children of this
};

}  // namespace vellomar
