#include "app/RunningApp.h"

#include <QKeyEvent>
#include <cstdint>
#include <filesystem>
#include <utility>

#include <gtest/gtest.h>

#include "settings/SettingsKeys.h"
#include "support/DecoderProgram.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar::testing {

RunningApp::RunningApp(QSize size) : size_(size) {}

void RunningApp::start() {
    end();
    settingsFile_.open()->setValue(keys::kHasCompletedWizard, true);
    startAsFound();
}

void RunningApp::startAsFound() {
    end();
    app_ = std::make_unique<VellomarApp>(
        VellomarApp::Surroundings{.settingsFile = settingsFile_.path(),
                                  .decoderProgram = decoderProgram(),
                                  .pixelDecoderProgram = pixelDecoderProgram(),
                                  .notifications = notifications_,
                                  .sleepInhibitor = sleepInhibitor_,
                                  .reveal = reveal_,
                                  .links = links_,
                                  .mounts = mounts_,
                                  .watchTimes = {.latency = std::chrono::milliseconds(50)},
                                  .makeFileChooser = [this](QQmlEngine&, FileSystem&) {
                                      auto chooser = std::make_unique<ScriptedFileChooser>();
                                      chooser_ = chooser.get();
                                      return chooser;
                                  }});
    ASSERT_TRUE(app_->show());
    window_ = std::make_unique<WindowDriver>(*app_->window());
    app_->window()->resize(size_);
    window_->waitUntilActive();
}

void RunningApp::press(const QString& button) {
    window_->settle();
    auto* const interface = window_->accessible(QAccessible::Button, button);
    ASSERT_NE(interface, nullptr) << "there is no button " << button.toStdString();
    ASSERT_TRUE(canPress(button)) << button.toStdString() << " is disabled";
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    window_->settle();
}

bool RunningApp::canPress(const QString& button) {
    auto* const interface = window_->accessible(QAccessible::Button, button);
    auto* const item = interface == nullptr ? nullptr : qobject_cast<QQuickItem*>(interface->object());
    return item != nullptr && item->isVisible() && item->isEnabled();
}

void RunningApp::tap(const QString& choice) {
    auto* const interface = window_->accessible(QAccessible::CheckBox, choice);
    ASSERT_NE(interface, nullptr) << choice.toStdString();
    interface->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    window_->settle();
}

bool RunningApp::isChecked(const QString& choice) {
    auto* const interface = window_->accessible(QAccessible::CheckBox, choice);
    return interface != nullptr && interface->state().checked;
}

void RunningApp::type(const QString& field, const QString& text) {
    auto* const interface = window_->accessible(QAccessible::EditableText, field);
    ASSERT_NE(interface, nullptr) << field.toStdString();
    qobject_cast<QQuickItem*>(interface->object())->forceActiveFocus();
    window_->press(Qt::Key_A, Qt::ControlModifier);
    window_->press(Qt::Key_Delete);
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, {}, QString(character));
        QCoreApplication::sendEvent(app_->window(), &press);
    }
    window_->settle();
}

bool RunningApp::isOpen(const QString& sheet) {
    window_->settle();
    return window_->accessible(QAccessible::Dialog, sheet) != nullptr;
}

void RunningApp::startDryRun() {
    press("Dry Run — Preview");
    press("RUN DRY RUN");
}

void RunningApp::dryRun() {
    startDryRun();
    waitForEnd();
}

void RunningApp::writeLargeFiles(const std::string& folder) {
    constexpr std::uintmax_t kSize = 300'000'000;
    for (const char* const name : {"/IMG_20230814_1.jpg", "/IMG_20230814_2.jpg"}) {
        const auto path = library_.write(folder + name, "");
        std::filesystem::resize_file(path, kSize);
    }
}

void RunningApp::waitForLogLine(const QString& words) {
    ASSERT_TRUE(spinUntil([&] {
        const auto* const log = app_->content().log();
        for (int row = 0; row < log->rowCount(); ++row)
            if (log->index(row).data(LogModel::lineRole).toString().contains(words)) return true;
        return false;
    })) << words.toStdString();
}

void RunningApp::waitForEnd() {
    ASSERT_TRUE(spinUntil([this] { return !isSorting(); }));
    window_->settle();
}

void RunningApp::pickFolders(const std::string& source, const std::string& destination) {
    chooser_->answerNext({source});
    press("Add source folder");
    chooser_->answerNext({destination});
    press("Set destination folder");
    ASSERT_TRUE(spinUntil([this] { return app_->content().run()->canRun(); }));
    window_->settle();
}

void RunningApp::end() {
    window_.reset();
    app_.reset();
}

}  // namespace vellomar::testing
