#include "ui/watch/WatchFolder.h"

#include "platform/TimeText.h"
#include "settings/OptionSettings.h"
#include "settings/SettingsKeys.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {

WatchFolder::WatchFolder(const Surroundings& surroundings, QObject* parent)
    : QObject(parent),
      surroundings_(surroundings),
      monitor_(surroundings.engine,
               {surroundings.mainActor, surroundings.fileSystem, surroundings.clock, surroundings.watcher},
               [this] { emit changed(); }) {
    connect(&surroundings.settings, &SettingsStore::changed, this, &WatchFolder::changed);
    connect(&surroundings.events, &EngineEvents::changed, this, [this](PublishedField field) {
        const auto engine = surroundings_.engine.lock();
        if (field == PublishedField::isRunning && engine && !engine->state().isRunning) monitor_.noteRunEnd();
    });
}

bool WatchFolder::canStart() const {
    return !isWatching() && !sourcePath().empty() && !destPath().empty();
}

QString WatchFolder::source() const {
    return displayText(isWatching() ? monitor_.watchedPath() : sourcePath());
}

QString WatchFolder::destination() const {
    return displayText(isWatching() ? monitor_.destPath() : destPath());
}

bool WatchFolder::isDryRun() const {
    return isWatching() ? wasDryRun_ : buildOptions(surroundings_.settings).dryRun;
}

QString WatchFolder::lastActivity() const {
    const auto& time = monitor_.lastActivity();
    return time ? QString::fromStdString(timeOfDayText(*time)) : QString();
}

QStringList WatchFolder::log() const {
    QStringList lines;
    for (const auto& line : monitor_.log())
        lines << displayText(line);
    return lines;
}

void WatchFolder::start() {
    if (!canStart()) return;
    const auto options = buildOptions(surroundings_.settings);
    wasDryRun_ = options.dryRun;
    monitor_.start(sourcePath(), destPath(), options);
}

void WatchFolder::setDryRun(bool isDryRun) {
    if (isWatching()) return;
    auto options = buildOptions(surroundings_.settings);
    options.dryRun = isDryRun;
    saveOption(surroundings_.settings, options, "opt_dryRun");
}

void WatchFolder::setOpen(bool isOpen) {
    isOpen_ = isOpen;
    emit changed();
}

std::string WatchFolder::sourcePath() const {
    const auto& entries = surroundings_.sources.entries();
    return entries.empty() ? std::string() : entries.front().path;
}

std::string WatchFolder::destPath() const {
    return surroundings_.settings.text(keys::kDestPath);
}

}  // namespace vellomar
