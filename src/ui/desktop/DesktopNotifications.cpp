#include "ui/desktop/DesktopNotifications.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>
#include <utility>

#include "ui/desktop/BusCall.h"

namespace vellomar {
namespace {

constexpr uint kReplacesNone = 0;
constexpr int kDesktopDecidesHowLong = -1;

QDBusMessage callOf(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

QDBusMessage notification(const QString& title, const QString& body) {
    auto call = callOf(QStringLiteral("Notify"));
    call << QStringLiteral("Vellomar") << kReplacesNone << QStringLiteral("vellomar") << title << body << QStringList()
         << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("vellomar")}} << kDesktopDecidesHowLong;
    return call;
}

}  // namespace

DesktopNotifications::DesktopNotifications(QDBusConnection sessionBus) : bus_(std::move(sessionBus)) {}

void DesktopNotifications::notify(const std::string& title, const std::string& body) {
    QMetaObject::invokeMethod(
        this, [this, title = QString::fromStdString(title), body = QString::fromStdString(body)] { show(title, body); },
        Qt::QueuedConnection);
}

void DesktopNotifications::show(const QString& title, const QString& body) {
    callBus(bus_, callOf(QStringLiteral("GetCapabilities")), *this, [this, title, body](const QDBusMessage& answer) {
        if (isFailure(answer)) return;
        const auto capabilities = answer.arguments().value(0).toStringList();
        const bool readsMarkup = capabilities.contains(QStringLiteral("body-markup"));
        bus_.send(notification(title, readsMarkup ? body.toHtmlEscaped() : body));
    });
}

}  // namespace vellomar
