#include "ui/main/QuitFlow.h"

namespace vellomar {

QuitFlow::QuitFlow(OrganizerEngine& engine, const EngineEvents& events, QObject* parent)
    : QObject(parent), engine_(engine) {
    connect(&events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::isRunning) look();
    });
}

QString QuitFlow::question() const {
    if (engine_.hasTask())
        return tr(
            "A run is under way. Quitting cancels it behind the file that is being worked on; what is done so far "
            "stays, and can be undone.");
    return tr("An undo is under way. It goes on to its end, and then Vellomar quits.");
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
    engine_.cancelRun();
    emit changed();
    look();
}

void QuitFlow::look() {
    if (isBusy()) return;
    isAsked_ = false;
    emit changed();
    if (isQuitting_) emit finished();
}

}  // namespace vellomar
