#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantMap>

namespace vellomar {

inline constexpr QLatin1StringView kPortalService("org.freedesktop.portal.Desktop");
inline constexpr QLatin1StringView kPortalPath("/org/freedesktop/portal/desktop");

// One question that the desktop portal puts to the user. Exactly one of the two signals comes once it was sent.
// Interface thread only.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    explicit PortalRequest(const QDBusConnection& bus);

    // Takes the question back if it is not answered yet.
    ~PortalRequest() override;
    PortalRequest(const PortalRequest&) = delete;
    PortalRequest& operator=(const PortalRequest&) = delete;

    // The call's option "handle_token" must be this: the answer is waited for before the call goes out, since it may
    // come before the call's own reply.
    [[nodiscard]] const QString& token() const { return token_; }

    // Once.
    void send(const QDBusMessage& call);

signals:
    // `response` is 0 for an answer, 1 when the user dismissed the question, 2 when it ended in another way.
    void answered(uint response, const QVariantMap& results);

    // There is no portal, it does not know how to ask this, or it went away before there was an answer.
    void failed();

private:
    Q_SLOT void takeResponse(uint response, const QVariantMap& results);
    void listenAt(const QString& handle);
    void takeReply(const QDBusMessage& reply);
    void fail();
    void takeBack();

    QDBusConnection bus_;
    const QString token_;
    QString handle_;
    QDBusServiceWatcher portal_;
    bool isOpen_ = false;
};

}  // namespace vellomar
