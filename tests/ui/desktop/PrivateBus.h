#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <functional>
#include <mutex>
#include <vector>

#include "support/TemporaryFolder.h"

namespace vellomar::testing {

// A message bus of a test's own, on which nobody is but whom the test connects, and which starts no services.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    // Where it is found, as the environment of a program tells it.
    [[nodiscard]] const QString& address() const { return address_; }

    // A new connection, as another program would have one. It ends with the bus. Any thread.
    [[nodiscard]] QDBusConnection connect();

    // Ends a connection, as the end of its program would.
    static void end(const QDBusConnection& connection);

private:
    TemporaryFolder folder_;
    QProcess daemon_;
    QString address_;
    std::mutex lock_;
    QStringList connections_;  // under lock_
};

// A connection to nobody, as where there is no bus.
[[nodiscard]] inline QDBusConnection noBus() {
    return QDBusConnection(QStringLiteral("there is no such connection"));
}

// A program that has a name on the bus, keeps what it is asked and answers as the test says. By its destruction it
// leaves the bus.
class FakeService : public QDBusVirtualObject {
public:
    using Answer = std::function<QDBusMessage(const QDBusMessage& call)>;

    // Where `answer` gives no message the call stays without an answer.
    FakeService(PrivateBus& bus, const QString& name, Answer answer);
    ~FakeService() override;

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    // What it was asked so far, of the methods named `member`.
    [[nodiscard]] std::vector<QDBusMessage> calls(const QString& member) const;

    // Sends `message` in its name.
    void send(const QDBusMessage& message) { connection_.send(message); }

private:
    QDBusConnection connection_;
    Answer answer_;
    std::vector<QDBusMessage> calls_;
};

}  // namespace vellomar::testing
