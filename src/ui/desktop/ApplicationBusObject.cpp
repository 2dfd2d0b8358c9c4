#include "ui/desktop/ApplicationBusObject.h"

#include <QDBusArgument>
#include <QVariantMap>
#include <utility>

namespace vellomar {
namespace {

constexpr QLatin1StringView kApplicationInterface("org.freedesktop.Application");

// The token by its present name and by that of X11.
constexpr QLatin1StringView kToken("activation-token");
constexpr QLatin1StringView kStartupId("desktop-startup-id");

// What the caller says of the desktop comes last in all three calls.
QString tokenIn(const QDBusMessage& message) {
    if (message.arguments().isEmpty()) return {};
    const auto platformData = qdbus_cast<QVariantMap>(message.arguments().constLast());
    return platformData.value(kToken, platformData.value(kStartupId)).toString();
}

}  // namespace

ApplicationBusObject::ApplicationBusObject(Activated activated) : activated_(std::move(activated)) {}

QString ApplicationBusObject::introspect(const QString& /*path*/) const {
    return QStringLiteral(R"(<interface name="org.freedesktop.Application">)"
                          R"(<method name="Activate"><arg type="a{sv}" name="platform_data" direction="in"/></method>)"
                          R"(<method name="Open"><arg type="as" name="uris" direction="in"/>)"
                          R"(<arg type="a{sv}" name="platform_data" direction="in"/></method>)"
                          R"(<method name="ActivateAction"><arg type="s" name="action_name" direction="in"/>)"
                          R"(<arg type="av" name="parameter" direction="in"/>)"
                          R"(<arg type="a{sv}" name="platform_data" direction="in"/></method>)"
                          R"(</interface>)");
}

bool ApplicationBusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const QString member = message.member();
    const bool isKnown = member == QStringLiteral("Activate") || member == QStringLiteral("Open") ||
                         member == QStringLiteral("ActivateAction");
    if (message.interface() != kApplicationInterface || !isKnown) return false;
    if (message.isReplyRequired()) connection.send(message.createReply());
    activated_(tokenIn(message));
    return true;
}

QDBusMessage activationCall(const QString& service, const QString& activationToken) {
    auto call =
        QDBusMessage::createMethodCall(service, kApplicationPath, kApplicationInterface, QStringLiteral("Activate"));
    QVariantMap platformData;
    if (!activationToken.isEmpty()) platformData = {{kToken, activationToken}, {kStartupId, activationToken}};
    call << platformData;
    return call;
}

}  // namespace vellomar
