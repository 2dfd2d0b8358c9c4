#include "ui/desktop/DesktopSleepInhibitor.h"

#include <utility>

#include "ui/desktop/SleepInhibition.h"

namespace vellomar {

class DesktopSleepInhibitor::DesktopHold final : public Hold {
public:
    DesktopHold(DesktopSleepInhibitor& inhibitor, std::uint64_t id) : inhibitor_(inhibitor), id_(id) {}
    ~DesktopHold() override {
        QMetaObject::invokeMethod(
            &inhibitor_, [&inhibitor = inhibitor_, id = id_] { inhibitor.end(id); }, Qt::QueuedConnection);
    }
    DesktopHold(const DesktopHold&) = delete;
    DesktopHold& operator=(const DesktopHold&) = delete;

private:
    DesktopSleepInhibitor& inhibitor_;
    const std::uint64_t id_;
};

DesktopSleepInhibitor::DesktopSleepInhibitor(QDBusConnection sessionBus, QDBusConnection systemBus)
    : sessionBus_(std::move(sessionBus)), systemBus_(std::move(systemBus)) {}

DesktopSleepInhibitor::~DesktopSleepInhibitor() = default;

std::unique_ptr<SleepInhibitor::Hold> DesktopSleepInhibitor::inhibit(const std::string& reason) {
    if (!sessionBus_.isConnected() && !systemBus_.isConnected()) return nullptr;
    const auto id = nextId_++;
    QMetaObject::invokeMethod(
        this, [this, id, text = QString::fromStdString(reason)] { begin(id, text); }, Qt::QueuedConnection);
    return std::make_unique<DesktopHold>(*this, id);
}

void DesktopSleepInhibitor::begin(std::uint64_t id, const QString& reason) {
    inhibitions_.emplace(id, new SleepInhibition(sessionBus_, systemBus_, reason, this));
}

void DesktopSleepInhibitor::end(std::uint64_t id) {
    const auto held = inhibitions_.find(id);
    if (held == inhibitions_.end()) return;
    held->second->end();
    inhibitions_.erase(held);
}

}  // namespace vellomar
