#include "ui/desktop/PrivateBus.h"

#include <QUuid>
#include <stdexcept>
#include <string>
#include <utility>

namespace vellomar::testing {
namespace {

// No folder of services is named, so that nothing of this machine is started.
std::string configuration(const std::string& socket) {
    return R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=)" +
           socket + R"(</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";
}

}  // namespace

PrivateBus::PrivateBus() {
    const auto file = folder_.write("bus.conf", configuration(folder_ / "socket"));
    daemon_.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + QString::fromStdString(file),
                                                  QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    while (!daemon_.canReadLine())
        if (!daemon_.waitForReadyRead()) throw std::runtime_error("dbus-daemon did not start");
    address_ = QString::fromUtf8(daemon_.readLine().trimmed());
}

PrivateBus::~PrivateBus() {
    for (const QString& name : connections_)
        QDBusConnection::disconnectFromBus(name);
    daemon_.kill();
    daemon_.waitForFinished();
}

QDBusConnection PrivateBus::connect() {
    const QString name = QUuid::createUuid().toString();
    const std::lock_guard guard(lock_);
    connections_.append(name);
    return QDBusConnection::connectToBus(address_, name);
}

void PrivateBus::end(const QDBusConnection& connection) {
    QDBusConnection::disconnectFromBus(connection.name());
}

FakeService::FakeService(PrivateBus& bus, const QString& name, Answer answer)
    : connection_(bus.connect()), answer_(std::move(answer)) {
    const bool isThere = connection_.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath) &&
                         connection_.registerService(name);
    if (!isThere) throw std::runtime_error("not on the bus: " + name.toStdString());
}

FakeService::~FakeService() {
    PrivateBus::end(connection_);
}

bool FakeService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    calls_.push_back(message);
    const auto answer = answer_(message);
    if (answer.type() != QDBusMessage::InvalidMessage) connection.send(answer);
    return true;
}

std::vector<QDBusMessage> FakeService::calls(const QString& member) const {
    std::vector<QDBusMessage> found;
    for (const auto& call : calls_)
        if (call.member() == member) found.push_back(call);
    return found;
}

}  // namespace vellomar::testing
