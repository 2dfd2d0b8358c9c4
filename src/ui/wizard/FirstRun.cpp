#include "ui/wizard/FirstRun.h"

#include <QPointer>

#include "settings/SettingsKeys.h"

namespace vellomar {

FirstRun::FirstRun(SettingsStore& settings, MainActor& mainActor, const WizardModel::Surroundings& wizard,
                   QObject* parent)
    : QObject(parent), settings_(settings), mainActor_(mainActor), wizard_(wizard) {
    connect(&wizard_, &WizardModel::completed, this, &FirstRun::finishWizard);
}

void FirstRun::offerWizard() {
    if (!settings_.boolean(keys::kHasCompletedWizard)) openWizard();
}

void FirstRun::finishWizard() {
    settings_.setValue(keys::kHasCompletedWizard, true);
    wizard_.close();
    tour_.open();
    remindOnce();
}

void FirstRun::remindOnce() {
    if (settings_.boolean(keys::kHasSeenWizardReminder)) return;
    settings_.setValue(keys::kHasSeenWizardReminder, true);
    mainActor_.postAfter(kReminderDelay, [self = QPointer(this)] {
        if (self) self->setReminderShown(true);
    });
    mainActor_.postAfter(kReminderDelay + kReminderStay, [self = QPointer(this)] {
        if (self) self->setReminderShown(false);
    });
}

void FirstRun::setReminderShown(bool isShown) {
    if (isShown == isReminderShown_) return;
    isReminderShown_ = isShown;
    emit reminderChanged();
}

}  // namespace vellomar
