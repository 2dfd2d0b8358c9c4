#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <memory>
#include <optional>

#include <QtQml/qqmlregistration.h>

#include "dates/ExifTool.h"
#include "engine/OrganizerEngine.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MainActor.h"
#include "platform/SleepInhibitor.h"
#include "platform/watch/FolderWatcher.h"
#include "platform/watch/MountWatcher.h"
#include "settings/SettingsStore.h"
#include "tools/CameraCards.h"
#include "ui/cards/CardImport.h"
#include "ui/confirmation/ConfirmationModel.h"
#include "ui/dates/DateCorrection.h"
#include "ui/dates/DateShiftRun.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/FileChooser.h"
#include "ui/desktop/FileReveal.h"
#include "ui/desktop/LinkOpener.h"
#include "ui/duplicates/DuplicateViewerModel.h"
#include "ui/help/Changelog.h"
#include "ui/help/Help.h"
#include "ui/inspector/FileFacts.h"
#include "ui/main/Banner.h"
#include "ui/main/EngineEvents.h"
#include "ui/main/Exports.h"
#include "ui/main/Folders.h"
#include "ui/main/LogModel.h"
#include "ui/main/Notices.h"
#include "ui/main/QuitFlow.h"
#include "ui/main/RunFlow.h"
#include "ui/main/RunStatus.h"
#include "ui/options/NamingChoice.h"
#include "ui/options/OptionsPanelModel.h"
#include "ui/plan/FilePlan.h"
#include "ui/plan/PlanWindow.h"
#include "ui/presets/PresetsModel.h"
#include "ui/rules/RenameRulesModel.h"
#include "ui/statistics/LibraryStatsModel.h"
#include "ui/undo/UndoFlow.h"
#include "ui/watch/WatchFolder.h"
#include "ui/wizard/FirstRun.h"

namespace vellomar {

// What the main window shows and does. Each area has a model of its own, found here by name; what lies between them
// (an estimate that the cards, the banner and a sheet show) is connected here. Interface thread only.
class ContentViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(vellomar::RunStatus* status READ status CONSTANT)
    Q_PROPERTY(vellomar::LogModel* log READ log CONSTANT)
    Q_PROPERTY(vellomar::Folders* folders READ folders CONSTANT)
    Q_PROPERTY(vellomar::RunFlow* run READ run CONSTANT)
    Q_PROPERTY(vellomar::UndoFlow* undo READ undo CONSTANT)
    Q_PROPERTY(vellomar::Exports* exports READ exports CONSTANT)
    Q_PROPERTY(vellomar::QuitFlow* quit READ quit CONSTANT)
    Q_PROPERTY(vellomar::Notices* notices READ notices CONSTANT)
    Q_PROPERTY(vellomar::ConfirmationModel* dryRun READ dryRun CONSTANT)
    Q_PROPERTY(vellomar::ConfirmationModel* realRun READ realRun CONSTANT)
    Q_PROPERTY(vellomar::NamingChoice* naming READ naming CONSTANT)
    Q_PROPERTY(vellomar::OptionsPanelModel* options READ options CONSTANT)
    Q_PROPERTY(vellomar::FilePlan* plan READ plan CONSTANT)
    Q_PROPERTY(vellomar::PlanWindow* planWindow READ planWindow CONSTANT)
    Q_PROPERTY(vellomar::PresetsModel* presets READ presets CONSTANT)
    Q_PROPERTY(vellomar::RenameRulesModel* rules READ rules CONSTANT)
    Q_PROPERTY(vellomar::WatchFolder* watch READ watch CONSTANT)
    Q_PROPERTY(vellomar::CardImport* cards READ cards CONSTANT)
    Q_PROPERTY(vellomar::DuplicateViewerModel* duplicates READ duplicates CONSTANT)
    Q_PROPERTY(vellomar::LibraryStatsModel* statistics READ statistics CONSTANT)
    Q_PROPERTY(vellomar::DateCorrection* dates READ dates CONSTANT)
    Q_PROPERTY(vellomar::Help* help READ help CONSTANT)
    Q_PROPERTY(vellomar::Changelog* changelog READ changelog CONSTANT)
    Q_PROPERTY(vellomar::FirstRun* firstRun READ firstRun CONSTANT)
    Q_PROPERTY(QVariantList config READ config NOTIFY configChanged)
    Q_PROPERTY(bool hasBanner READ hasBanner NOTIFY bannerChanged)
    Q_PROPERTY(QString bannerSymbol READ bannerSymbol NOTIFY bannerChanged)
    Q_PROPERTY(QColor bannerColour READ bannerColour NOTIFY bannerChanged)
    Q_PROPERTY(QString bannerText READ bannerText NOTIFY bannerChanged)
    Q_PROPERTY(QString lowSpaceText READ lowSpace NOTIFY bannerChanged)
    Q_PROPERTY(bool lacksExifTool READ lacksExifTool NOTIFY exifToolChanged)
    Q_PROPERTY(bool floppyMode READ floppyMode NOTIFY floppyModeChanged)

public:
    // What it works with; all of it must outlive it.
    struct Surroundings {
        OrganizerEngine& engine;
        std::weak_ptr<OrganizerEngine> sharedEngine;  // the same
        const EngineEvents& events;
        MainActor& mainActor;
        SettingsStore& settings;
        FileSystem& fileSystem;
        const Clock& clock;
        const ExifUtils::ExifTool& exifTool;
        FileChooser& chooser;
        FileFactsReader& fileFacts;
        FileReveal& reveal;
        LinkOpener& links;
        BackgroundWork& background;
        FolderWatcher& folderWatcher;
        MountWatcher& mounts;
        SleepInhibitor& sleepInhibitor;
    };

    explicit ContentViewModel(const Surroundings& surroundings, QObject* parent = nullptr);

    // Once, when the window appears: what was kept is read, a new user is led through the wizard, and videos are off
    // until they are asked for again.
    void appear();

    [[nodiscard]] RunStatus* status() { return &status_; }
    [[nodiscard]] LogModel* log() { return &log_; }
    [[nodiscard]] Folders* folders() { return &folders_; }
    [[nodiscard]] RunFlow* run() { return &run_; }
    [[nodiscard]] UndoFlow* undo() { return &undo_; }
    [[nodiscard]] Exports* exports() { return &exports_; }
    [[nodiscard]] QuitFlow* quit() { return &quit_; }
    [[nodiscard]] Notices* notices() { return &notices_; }

    [[nodiscard]] NamingChoice* naming() { return &naming_; }
    [[nodiscard]] OptionsPanelModel* options() { return &options_; }
    // The plan as the main window shows it, and the window of its own.
    [[nodiscard]] FilePlan* plan() { return &plan_; }
    [[nodiscard]] PlanWindow* planWindow() { return &planWindow_; }

    [[nodiscard]] PresetsModel* presets() { return &presets_; }
    [[nodiscard]] RenameRulesModel* rules() { return &rules_; }
    [[nodiscard]] DateCorrection* dates() { return &dates_; }

    [[nodiscard]] WatchFolder* watch() { return &watch_; }
    [[nodiscard]] CardImport* cards() { return &cards_; }
    // What the last run found.
    [[nodiscard]] DuplicateViewerModel* duplicates() { return &duplicates_; }
    [[nodiscard]] LibraryStatsModel* statistics() { return &statistics_; }

    [[nodiscard]] Help* help() { return &help_; }
    [[nodiscard]] Changelog* changelog() { return &changelog_; }
    [[nodiscard]] FirstRun* firstRun() { return &firstRun_; }

    // The settings at a glance: sections, each a map of "heading" and "rows", of which each is one of "key", "value"
    // and "colour".
    [[nodiscard]] QVariantList config() const;

    // What the confirmations of the two kinds of run show.
    [[nodiscard]] ConfirmationModel* dryRun() { return &dryRun_; }
    [[nodiscard]] ConfirmationModel* realRun() { return &realRun_; }

    [[nodiscard]] bool hasBanner() const { return !bannerText().isEmpty(); }
    [[nodiscard]] QString bannerSymbol() const;
    [[nodiscard]] QColor bannerColour() const;
    [[nodiscard]] QString bannerText() const;
    [[nodiscard]] QString lowSpace() const;

    // Whether it was looked for and not found.
    [[nodiscard]] bool lacksExifTool() const { return lacksExifTool_; }

    // The hidden mode in which folders of floppies have rules of their own.
    [[nodiscard]] bool floppyMode() const;
    Q_INVOKABLE void toggleFloppyMode();

signals:
    void configChanged();
    void bannerChanged();
    void exifToolChanged();
    void floppyModeChanged();

private:
    void connectFolders();
    void connectRun();
    void connectSettings();
    void connectLists();
    void connectCards();
    void connectDates();
    void tellOfDamage();
    void tellOfSaving();
    void lookForExifTool();
    void noteEstimate();
    [[nodiscard]] RunSettings confirmed(const RunPayload& run) const;
    [[nodiscard]] std::optional<Banner> banner() const;

    Surroundings surroundings_;
    RunStatus status_;
    LogModel log_;
    Folders folders_;
    RunFlow run_;
    UndoFlow undo_;
    DateShiftRun shift_;
    DateCorrection dates_;
    Exports exports_;
    QuitFlow quit_;
    Notices notices_;
    NamingChoice naming_;
    OptionsPanelModel options_;
    FilePlan plan_;
    PlanWindow planWindow_;
    PresetsModel presets_;
    RenameRulesModel rules_;
    WatchFolder watch_;
    CardImport cards_;
    std::unique_ptr<CameraCards> cameraCards_;
    DuplicateViewerModel duplicates_;
    LibraryStatsModel statistics_;
    Help help_;
    Changelog changelog_;
    FirstRun firstRun_;
    ConfirmationModel dryRun_;
    ConfirmationModel realRun_;
    bool lacksExifTool_ = false;
};

}  // namespace vellomar
