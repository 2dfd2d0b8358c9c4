#include "ui/main/QuitFlow.h"

namespace vellomar {

QuitFlow::QuitFlow(OrganizerEngine& engine, const EngineEvents& events, DateShiftRun& shift, QObject* parent)
    : QObject(parent), engine_(engine), shift_(shift) {
    connect(&events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::isRunning) look();
    });
    connect(&shift_, &DateShiftRun::changed, this, &QuitFlow::look);
}

QString QuitFlow::question() const {
    if (shift_.isRunning()) return shiftQuestion();
    if (engine_.hasTask())
        return tr(
            "A run is under way. Quitting cancels it behind the file that is being worked on; what is done so far "
            "stays, and can be undone.");
    return tr("An undo is under way. It goes on to its end, and then Vellomar quits.");
}

QString QuitFlow::shiftQuestion() const {
    const auto& shift = shift_.state();
    return tr("Dates are being shifted: %1 of %2 files so far. Quitting stops behind the file that is being worked "
              "on; what is shifted stays so, and the other files are not changed.")
        .arg(shift.done)
        .arg(shift.files);
}

bool QuitFlow::mayClose() {
    if (!isBusy()) return true;
    if (!isQuitting_) isAsked_ = true;
    emit changed();
    return false;
}

void QuitFlow::stay() {
    isAsked_ = false;
    emit changed();
}

void QuitFlow::quit() {
    isAsked_ = false;
    isQuitting_ = true;
    if (engine_.state().isRunning || engine_.hasTask()) engine_.cancelRun();
    shift_.stop();
    emit changed();
    look();
}

void QuitFlow::look() {
    if (!isBusy()) isAsked_ = false;
    emit changed();
    if (isBusy()) return;
    if (isQuitting_) emit finished();
}

}  // namespace vellomar
