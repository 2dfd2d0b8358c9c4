#include "ui/desktop/SignalListener.h"

#include <stdexcept>

namespace vellomar::testing {

SignalListener::SignalListener(QDBusConnection connection, const QString& interface, const QString& name) {
    if (!connection.connect(QString(), QString(), interface, name, this, SLOT(take(QDBusMessage))))
        throw std::runtime_error("cannot listen");
    // The bus answers in order: once it has, it knows that we listen.
    connection.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "GetId"));
}

}  // namespace vellomar::testing
