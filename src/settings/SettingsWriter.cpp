#include "settings/SettingsWriter.h"

#include <QSettings>
#include <QVariant>
#include <utility>

#include "settings/SettingsFormat.h"

namespace vellomar {

SettingsWriter::SettingsWriter(QString file, std::function<void(bool)> onWritten)
    : file_(std::move(file)),
      onWritten_(std::move(onWritten)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

SettingsWriter::~SettingsWriter() = default;

void SettingsWriter::write(const std::string& key, std::optional<Json> value) {
    {
        const std::scoped_lock lock(mutex_);
        changes_.insert_or_assign(key, std::move(value));
        isDue_ = true;
    }
    changed_.notify_one();
}

void SettingsWriter::waitUntilTried() {
    std::unique_lock lock(mutex_);
    tried_.wait(lock, [this] { return !isDue_ && !isWriting_; });
}

void SettingsWriter::run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return isDue_; }) || !changes_.empty()) {
        const bool isLastTry = stop.stop_requested();
        auto changes = std::exchange(changes_, {});
        isDue_ = false;
        isWriting_ = true;
        lock.unlock();
        const bool succeeded = writeToFile(changes);
        onWritten_(succeeded);
        lock.lock();
        isWriting_ = false;
        if (!succeeded) changes_.merge(changes);  // what changed again meanwhile is newer
        tried_.notify_all();
        if (isLastTry) return;
    }
}

// Another process may have written meanwhile: its changes are read, and ours put on top.
bool SettingsWriter::writeToFile(const Changes& changes) const {
    QSettings settings(file_, settingsFormat());
    for (const auto& [key, value] : changes) {
        const auto name = QString::fromStdString(key);
        if (value)
            settings.setValue(name, QVariant::fromValue<Json>(*value));
        else
            settings.remove(name);
    }
    settings.sync();
    return settings.status() == QSettings::NoError;
}

}  // namespace vellomar
