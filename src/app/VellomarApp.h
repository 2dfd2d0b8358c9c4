#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifTool.h"
#include "engine/OrganizerEngine.h"
#include "platform/Clock.h"
#include "platform/LinuxFileSystem.h"
#include "platform/watch/LinuxFolderWatcher.h"
#include "platform/watch/MountWatcher.h"
#include "settings/SettingsStore.h"
#include "settings/StoredUserDefaults.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/EventLoopActor.h"
#include "ui/desktop/FileChooser.h"
#include "ui/desktop/FileReveal.h"
#include "ui/desktop/LinkOpener.h"
#include "ui/inspector/DecodedFileFacts.h"
#include "ui/main/ContentViewModel.h"
#include "ui/main/EngineEvents.h"

namespace vellomar {

// The application: the one engine, all that it and the window work with, and the window itself. What belongs to the
// desktop it is given, so that it can be driven without one.
//
// Made and destroyed on the interface thread. Destroyed during a run or a shift of dates it ends that and waits for the
// file under way, during an undo for its end.
class VellomarApp final : public QObject {
    Q_OBJECT

public:
    struct Surroundings {
        std::string settingsFile;  // absolute path
        std::string decoderProgram;
        std::string pixelDecoderProgram;
        NotificationService& notifications;
        SleepInhibitor& sleepInhibitor;
        FileReveal& reveal;
        LinkOpener& links;
        MountWatcher& mounts;
        WatchTimes watchTimes;  // how a watched folder is looked at
        // Makes what folders and files are chosen with, once.
        std::function<std::unique_ptr<FileChooser>(QQmlEngine&, FileSystem&)> makeFileChooser;
    };

    explicit VellomarApp(const Surroundings& surroundings);
    ~VellomarApp() override;
    VellomarApp(const VellomarApp&) = delete;
    VellomarApp& operator=(const VellomarApp&) = delete;

    // Loads and shows the main window. False, with the reason in the program's log, if it cannot be loaded.
    [[nodiscard]] bool show();

    // Brings the window to the front. The token, if the desktop gave one, entitles it to be there.
    void raise(const QString& activationToken);

    [[nodiscard]] QQuickWindow* window() const { return window_; }
    [[nodiscard]] OrganizerEngine& engine() { return *engine_; }
    [[nodiscard]] ContentViewModel& content() { return content_; }
    [[nodiscard]] SettingsStore& settings() { return settings_; }

signals:
    // How far the run or the undo is, from 0 to 1; less than 0 when there is none.
    void progressed(double fraction);

private:
    [[nodiscard]] EngineServices servicesFor(const Surroundings& surroundings);
    void tellProgress();

    LinuxFileSystem fileSystem_;
    SystemClock clock_;
    SettingsStore settings_;
    StoredUserDefaults userDefaults_;
    ExifUtils::ExifTool exifTool_;
    EmbeddedMetadataReaders metadataReaders_;
    EventLoopActor mainActor_;
    DecodedFileFacts fileFacts_;
    BackgroundWork background_;
    QQmlEngine qml_;
    std::unique_ptr<FileChooser> fileChooser_;
    EngineEvents events_;
    LinuxFolderWatcher folderWatcher_;
    std::shared_ptr<OrganizerEngine> engine_;
    ContentViewModel content_;
    std::unique_ptr<QObject> root_;  // the window, as it was loaded
    QPointer<QQuickWindow> window_;
};

}  // namespace vellomar
