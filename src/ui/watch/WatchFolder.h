#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>

#include <QtQml/qqmlregistration.h>

#include "engine/OrganizerEngine.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MainActor.h"
#include "platform/watch/FolderWatcher.h"
#include "settings/SettingsStore.h"
#include "settings/SourceList.h"
#include "tools/WatchFolderMonitor.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// The watched folder and its sheet. The first source folder is what can be watched. Interface thread only.
class WatchFolder final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(bool isWatching READ isWatching NOTIFY changed)
    Q_PROPERTY(bool canStart READ canStart NOTIFY changed)
    Q_PROPERTY(QString source READ source NOTIFY changed)
    Q_PROPERTY(QString destination READ destination NOTIFY changed)
    Q_PROPERTY(bool isDryRun READ isDryRun NOTIFY changed)
    Q_PROPERTY(int filesProcessed READ filesProcessed NOTIFY changed)
    Q_PROPERTY(QString lastActivity READ lastActivity NOTIFY changed)
    Q_PROPERTY(QStringList log READ log NOTIFY changed)

public:
    // What it works with; all of it must outlive it. `events` are of that engine.
    struct Surroundings {
        std::weak_ptr<OrganizerEngine> engine;
        const EngineEvents& events;
        SettingsStore& settings;
        const SourceList& sources;
        MainActor& mainActor;
        FileSystem& fileSystem;
        const Clock& clock;
        FolderWatcher& watcher;
    };

    explicit WatchFolder(const Surroundings& surroundings, QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] bool isWatching() const { return monitor_.isWatching(); }

    // Whether there are both folders, and nothing is watched yet.
    [[nodiscard]] bool canStart() const;

    // What is watched and where it is sorted to, or would be; empty where that is not set.
    [[nodiscard]] QString source() const;
    [[nodiscard]] QString destination() const;

    // Whether arrivals are only planned: as it is set, or, while watching, as it was when that began.
    [[nodiscard]] bool isDryRun() const;

    [[nodiscard]] int filesProcessed() const { return static_cast<int>(monitor_.filesProcessed()); }
    [[nodiscard]] QString lastActivity() const;  // time of day; empty while there was none
    [[nodiscard]] QStringList log() const;       // newest first

    Q_INVOKABLE void open() { setOpen(true); }
    Q_INVOKABLE void dismiss() { setOpen(false); }

    // Begins to watch, with the folders and options as they are set now.
    Q_INVOKABLE void start();
    Q_INVOKABLE void stop() { monitor_.stop(); }

    // Does nothing while watching: those options are settled.
    Q_INVOKABLE void setDryRun(bool isDryRun);

    // While held up, because something else works on the files, arrivals begin no run.
    void setHeldUp(bool isHeldUp) { monitor_.setHeldUp(isHeldUp); }

    // To be called when the list of sources has changed.
    void noteSources() { emit changed(); }

signals:
    void changed();

private:
    void setOpen(bool isOpen);
    [[nodiscard]] std::string sourcePath() const;
    [[nodiscard]] std::string destPath() const;

    Surroundings surroundings_;
    WatchFolderMonitor monitor_;
    bool isOpen_ = false;
    bool wasDryRun_ = false;  // when the watching began
};

}  // namespace vellomar
