#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QObject>
#include <QString>
#include <memory>
#include <optional>

class QLocalServer;
class QLockFile;

namespace vellomar {

// Sees to it that the program runs once a session: the first start owns a name on the session bus, and any further one
// has the first show itself. Without a bus, a lock and a socket in a folder of the user's do the same.
//
// Interface thread only. It asks before there is a window and an event loop, so it waits for the answer: no longer than
// a few seconds, whatever the first does.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Start {
        first,   // we are alone
        second,  // another was there and has been asked to show itself: there is nothing left to do
    };

    // Where a lock and a socket go: in $XDG_RUNTIME_DIR, or a temporary folder of the user's.
    [[nodiscard]] static QString usualFolder();

    // What the desktop gave this start so that its window may come to the front. Empty if nothing. To be asked before
    // the application object is made, which takes it.
    [[nodiscard]] static QString activationTokenOfThisStart();

    // `folder` is made when it is needed.
    explicit SingleInstance(QDBusConnection sessionBus, QString folder = usualFolder());

    // Lets the next start be the first.
    ~SingleInstance() override;
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Once. Of several that ask at the same time exactly one is the first. `activationToken` is passed on to it.
    [[nodiscard]] Start claim(const QString& activationToken);

signals:
    // Another start, or the desktop, wants our window in front. The token, which may be empty, entitles it to be.
    void activated(const QString& activationToken);

private:
    // Nothing when the bus does not let us have a name.
    [[nodiscard]] std::optional<Start> claimOnBus(const QString& activationToken);
    [[nodiscard]] Start claimInFolder(const QString& activationToken);
    void listen();
    void takeVisitor();

    [[nodiscard]] QString socketPath() const;

    QDBusConnection bus_;
    const QString folder_;
    const std::unique_ptr<QDBusVirtualObject> busObject_;
    std::unique_ptr<QLockFile> lock_;
    std::unique_ptr<QLocalServer> server_;
    bool ownsName_ = false;
};

}  // namespace vellomar
