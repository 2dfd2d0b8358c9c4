#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <functional>

namespace vellomar {

inline constexpr QLatin1StringView kApplicationPath("/io/github/vellomar/Vellomar");

// Answers org.freedesktop.Application for us. Whatever is wanted of the program, its window is to come to the front:
// it has no actions and opens no files from outside.
class ApplicationBusObject final : public QDBusVirtualObject {
public:
    using Activated = std::function<void(const QString& activationToken)>;

    explicit ApplicationBusObject(Activated activated);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    const Activated activated_;
};

// The call that has the running program show itself, with the token of who calls.
[[nodiscard]] QDBusMessage activationCall(const QString& service, const QString& activationToken);

}  // namespace vellomar
