#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <functional>

class QObject;

namespace vellomar {

// Sends `call` over `bus`, starting its service where the bus can, and returns at once. The answer goes to `then` from
// the event loop of `context`, whose thread this is, and is dropped if that has gone. A service that is not there, a
// bus that is not there and a service that does not answer within half a minute all give an error message.
void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject& context,
             const std::function<void(const QDBusMessage& answer)>& then);

// Whether `answer` is no answer but the reason why there is none.
[[nodiscard]] bool isFailure(const QDBusMessage& answer);

}  // namespace vellomar
