#include "ui/desktop/BusCall.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QObject>

namespace vellomar {

void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject& context,
             const std::function<void(const QDBusMessage& answer)>& then) {
    if (!bus.isConnected()) {
        // Such a call would never be finished.
        const auto failure = QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("There is no bus."));
        QMetaObject::invokeMethod(
            &context, [then, failure] { then(failure); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), &context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [then](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        then(finished->reply());
    });
}

bool isFailure(const QDBusMessage& answer) {
    return answer.type() != QDBusMessage::ReplyMessage;
}

}  // namespace vellomar
