#pragma once

#include <QObject>
#include <chrono>

#include <QtQml/qqmlregistration.h>

#include "platform/MainActor.h"
#include "settings/SettingsStore.h"
#include "ui/wizard/TourModel.h"
#include "ui/wizard/WizardModel.h"

namespace vellomar {

// What a new user is led through: the wizard, until it was completed once, the tour behind it, and a word, once, on
// where the wizard is found again. Interface thread only.
class FirstRun final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(vellomar::WizardModel* wizard READ wizard CONSTANT)
    Q_PROPERTY(vellomar::TourModel* tour READ tour CONSTANT)
    Q_PROPERTY(bool isReminderShown READ isReminderShown NOTIFY reminderChanged)

public:
    // How long the reminder waits behind the wizard's end, and how long it stays.
    static constexpr std::chrono::milliseconds kReminderDelay{1200};
    static constexpr std::chrono::milliseconds kReminderStay{7000};

    // All of it must outlive this.
    FirstRun(SettingsStore& settings, MainActor& mainActor, const WizardModel::Surroundings& wizard,
             QObject* parent = nullptr);

    [[nodiscard]] WizardModel* wizard() { return &wizard_; }
    [[nodiscard]] TourModel* tour() { return &tour_; }
    [[nodiscard]] bool isReminderShown() const { return isReminderShown_; }

    // At the start, when the lists of folders have been read: opens the wizard unless it was completed before.
    void offerWizard();

    // Opens it whatever was.
    Q_INVOKABLE void openWizard() { wizard_.open(); }

    Q_INVOKABLE void dismissReminder() { setReminderShown(false); }

signals:
    void reminderChanged();

private:
    void finishWizard();
    void remindOnce();
    void setReminderShown(bool isShown);

    SettingsStore& settings_;
    MainActor& mainActor_;
    WizardModel wizard_;
    TourModel tour_;
    bool isReminderShown_ = false;
};

}  // namespace vellomar
