#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

namespace vellomar {

// One thing for which the machine stays awake, from its construction to its destruction. Interface thread only.
class SleepInhibition : public QObject {
public:
    SleepInhibition(QDBusConnection sessionBus, QDBusConnection systemBus, const QString& reason, QObject* parent);
    ~SleepInhibition() override;
    SleepInhibition(const SleepInhibition&) = delete;
    SleepInhibition& operator=(const SleepInhibition&) = delete;

    // Destroys this as soon as there is nothing left to wait for: what the desktop has yet to grant cannot be given
    // back before.
    void end();

private:
    void askPortal(const QString& reason);
    void askLoginService(const QString& reason);
    void settle();

    QDBusConnection sessionBus_;
    QDBusConnection systemBus_;
    QString portalHandle_;          // what the portal granted
    QDBusUnixFileDescriptor lock_;  // what the login service granted: it holds while this is open
    bool isSettled_ = false;
    bool hasEnded_ = false;
};

}  // namespace vellomar
