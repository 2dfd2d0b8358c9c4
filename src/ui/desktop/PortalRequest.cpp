#include "ui/desktop/PortalRequest.h"

#include <QDBusObjectPath>
#include <QUuid>
#include <utility>

#include "ui/desktop/BusCall.h"

namespace vellomar {
namespace {

constexpr QLatin1StringView kRequestInterface("org.freedesktop.portal.Request");

QString newToken() {
    return QStringLiteral("vellomar") + QUuid::createUuid().toString(QUuid::Id128);
}

// Where the portal will put the request: settled by who asks and by the token.
QString handleOf(const QDBusConnection& bus, const QString& token) {
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return kPortalPath + QStringLiteral("/request/") + sender + u'/' + token;
}

}  // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus)
    : bus_(bus),
      token_(newToken()),
      handle_(handleOf(bus, token_)),
      portal_(kPortalService, bus, QDBusServiceWatcher::WatchForUnregistration) {
    connect(&portal_, &QDBusServiceWatcher::serviceUnregistered, this, &PortalRequest::fail);
}

PortalRequest::~PortalRequest() {
    if (isOpen_) takeBack();
}

void PortalRequest::send(const QDBusMessage& call) {
    isOpen_ = true;
    listenAt(handle_);
    callBus(bus_, call, *this, [this](const QDBusMessage& reply) { takeReply(reply); });
}

void PortalRequest::listenAt(const QString& handle) {
    bus_.connect(QString(), handle, kRequestInterface, QStringLiteral("Response"), this,
                 SLOT(takeResponse(uint, QVariantMap)));
}

void PortalRequest::takeReply(const QDBusMessage& reply) {
    if (isFailure(reply)) {
        fail();
        return;
    }
    const QString handle = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (handle.isEmpty() || handle == handle_) return;
    handle_ = handle;  // an old portal chooses for itself
    listenAt(handle_);
}

void PortalRequest::takeResponse(uint response, const QVariantMap& results) {
    if (!std::exchange(isOpen_, false)) return;
    emit answered(response, results);
}

void PortalRequest::fail() {
    if (!std::exchange(isOpen_, false)) return;
    takeBack();  // from a portal that was merely slow
    emit failed();
}

void PortalRequest::takeBack() {
    auto close = QDBusMessage::createMethodCall(kPortalService, handle_, kRequestInterface, QStringLiteral("Close"));
    close.setAutoStartService(false);
    bus_.send(close);
}

}  // namespace vellomar
