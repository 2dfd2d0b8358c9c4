#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <string>

#include "platform/NotificationService.h"

namespace vellomar {

// Notifications that the desktop shows. Whether they are wanted is the desktop's to know: the user tells it, by
// program. Made and destroyed on the interface thread, whose event loop does the work.
class DesktopNotifications final : public QObject, public NotificationService {
public:
    explicit DesktopNotifications(QDBusConnection sessionBus);

    void notify(const std::string& title, const std::string& body) override;

private:
    void show(const QString& title, const QString& body);

    QDBusConnection bus_;
};

}  // namespace vellomar
