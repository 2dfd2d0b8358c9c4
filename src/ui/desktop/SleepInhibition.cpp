#include "ui/desktop/SleepInhibition.h"

#include <QDBusObjectPath>
#include <QVariant>
#include <QVariantMap>
#include <utility>

#include "ui/desktop/BusCall.h"
#include "ui/desktop/PortalRequest.h"

namespace vellomar {
namespace {

constexpr uint kSuspend = 4;
constexpr uint kIdle = 8;

QDBusMessage portalCall(const QString& reason) {
    auto call = QDBusMessage::createMethodCall(
        kPortalService, kPortalPath, QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    constexpr uint kFlags = kSuspend | kIdle;
    call << QString() << kFlags << QVariantMap{{QStringLiteral("reason"), reason}};
    return call;
}

QDBusMessage loginServiceCall(const QString& reason) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call << QStringLiteral("idle:sleep") << QStringLiteral("Vellomar") << reason << QStringLiteral("block");
    return call;
}

}  // namespace

SleepInhibition::SleepInhibition(QDBusConnection sessionBus, QDBusConnection systemBus, const QString& reason,
                                 QObject* parent)
    : QObject(parent), sessionBus_(std::move(sessionBus)), systemBus_(std::move(systemBus)) {
    askPortal(reason);
}

SleepInhibition::~SleepInhibition() {
    if (!portalHandle_.isEmpty())
        sessionBus_.send(QDBusMessage::createMethodCall(
            kPortalService, portalHandle_, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
}

void SleepInhibition::end() {
    hasEnded_ = true;
    if (isSettled_) deleteLater();
}

void SleepInhibition::askPortal(const QString& reason) {
    callBus(sessionBus_, portalCall(reason), *this, [this, reason](const QDBusMessage& answer) {
        if (isFailure(answer)) {
            askLoginService(reason);
            return;
        }
        portalHandle_ = answer.arguments().value(0).value<QDBusObjectPath>().path();
        settle();
    });
}

void SleepInhibition::askLoginService(const QString& reason) {
    callBus(systemBus_, loginServiceCall(reason), *this, [this](const QDBusMessage& answer) {
        if (!isFailure(answer)) lock_ = answer.arguments().value(0).value<QDBusUnixFileDescriptor>();
        settle();
    });
}

void SleepInhibition::settle() {
    isSettled_ = true;
    if (hasEnded_) deleteLater();
}

}  // namespace vellomar
