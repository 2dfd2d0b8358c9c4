#pragma once

#include <QSize>
#include <QString>
#include <memory>
#include <string>

#include "app/VellomarApp.h"
#include "settings/SettingsFile.h"
#include "support/EngineHarness.h"
#include "support/ScriptedWatchers.h"
#include "support/TemporaryFolder.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/WindowDriver.h"
#include "ui/desktop/RecordingDesktop.h"

namespace vellomar::testing {

// The application with its window, on settings and a desktop of its own, used as somebody uses it who sees nothing but
// what a screen reader tells.
class RunningApp {
public:
    explicit RunningApp(QSize size = {900, 600});

    // Starts it, with what it finds in the settings file; ends the one before. Its user has completed the wizard.
    void start();

    // Starts it likewise, for somebody who may not have.
    void startAsFound();

    [[nodiscard]] VellomarApp& app() { return *app_; }
    [[nodiscard]] WindowDriver& window() { return *window_; }
    [[nodiscard]] ScriptedFileChooser& chooser() { return *chooser_; }
    [[nodiscard]] RecordingReveal& reveal() { return reveal_; }
    [[nodiscard]] RecordingLinks& links() { return links_; }
    [[nodiscard]] ScriptedMountWatcher& mounts() { return mounts_; }
    [[nodiscard]] SettingsFile& settingsFile() { return settingsFile_; }
    [[nodiscard]] const TemporaryFolder& library() const { return library_; }

    // Presses the button of that name, in a sheet if one is open. Fails the test where there is none that can be.
    void press(const QString& button);

    // Whether there is such a button, and it can be pressed.
    [[nodiscard]] bool canPress(const QString& button);

    // Toggles what is on or off, or chosen or not, by its name, and tells how it is.
    void tap(const QString& choice);
    [[nodiscard]] bool isChecked(const QString& choice);

    // Types into the field of that name, in place of what it holds.
    void type(const QString& field, const QString& text);

    // Whether a sheet of that name is open.
    [[nodiscard]] bool isOpen(const QString& sheet);

    // Asks for a dry run and confirms it. The second of the two waits until it has ended.
    void startDryRun();
    void dryRun();

    // Two large files of one size among the sources, which any run reads to its end: enough time to look at a run.
    void writeLargeFiles(const std::string& folder);

    // Until a line of the log, as it is shown, holds `words`.
    void waitForLogLine(const QString& words);

    // Until nothing is under way.
    void waitForEnd();

    // Picks folders by the buttons, as sources and as the destination.
    void pickFolders(const std::string& source, const std::string& destination);

private:
    void end();
    [[nodiscard]] bool isSorting() { return app_->engine().state().isRunning || app_->engine().hasTask(); }

    QSize size_;
    TemporaryFolder library_{TemporaryFolder::Where::inMemory};
    SettingsFile settingsFile_;
    RecordingNotifications notifications_;
    CountingSleepInhibitor sleepInhibitor_;
    RecordingReveal reveal_;
    RecordingLinks links_;
    ScriptedMountWatcher mounts_;
    ScriptedFileChooser* chooser_ = nullptr;  // the application's
    std::unique_ptr<VellomarApp> app_;
    std::unique_ptr<WindowDriver> window_;
};

}  // namespace vellomar::testing
