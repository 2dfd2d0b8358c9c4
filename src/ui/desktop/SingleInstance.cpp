#include "ui/desktop/SingleInstance.h"

#include <QByteArray>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <chrono>
#include <thread>
#include <utility>

#include "ui/desktop/ApplicationBusObject.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;

constexpr QLatin1StringView kBusName("io.github.vellomar.Vellomar");

// Patience with a first start that does not answer.
constexpr int kAttempts = 3;
constexpr int kAnswer = 1000;  // milliseconds, for each step
constexpr std::chrono::milliseconds kUntilItListens = 1s;
constexpr std::chrono::milliseconds kBetweenTries = 10ms;

constexpr qint64 kLongestToken = 4096;

// Whether there was none to hear the call: the name's owner went meanwhile.
bool wasUnheard(const QDBusMessage& answer) {
    const QDBusError error(answer);
    return error.type() == QDBusError::ServiceUnknown || error.type() == QDBusError::NoReply;
}

bool sendToSocket(const QString& path, const QString& activationToken) {
    QLocalSocket socket;
    socket.connectToServer(path, QIODevice::WriteOnly);
    if (!socket.waitForConnected(kAnswer)) return false;
    socket.write(activationToken.toUtf8() + '\n');
    return socket.waitForBytesWritten(kAnswer);
}

void makePrivateFolder(const QString& path) {
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

}  // namespace

QString SingleInstance::usualFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/vellomar");
}

QString SingleInstance::activationTokenOfThisStart() {
    return qEnvironmentVariable("XDG_ACTIVATION_TOKEN", qEnvironmentVariable("DESKTOP_STARTUP_ID"));
}

SingleInstance::SingleInstance(QDBusConnection sessionBus, QString folder)
    : bus_(std::move(sessionBus)),
      folder_(std::move(folder)),
      busObject_(std::make_unique<ApplicationBusObject>([this](const QString& token) { emit activated(token); })) {}

SingleInstance::~SingleInstance() {
    if (ownsName_) bus_.unregisterService(kBusName);
    bus_.unregisterObject(kApplicationPath);
}

SingleInstance::Start SingleInstance::claim(const QString& activationToken) {
    if (bus_.isConnected())
        if (const auto start = claimOnBus(activationToken)) return *start;
    return claimInFolder(activationToken);
}

std::optional<SingleInstance::Start> SingleInstance::claimOnBus(const QString& activationToken) {
    // Before the name, since who sees the name may call at once.
    bus_.registerVirtualObject(kApplicationPath, busObject_.get());
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const auto reply = bus_.interface()->registerService(kBusName, QDBusConnectionInterface::DontQueueService,
                                                             QDBusConnectionInterface::DontAllowReplacement);
        if (!reply.isValid()) return std::nullopt;
        ownsName_ = reply.value() == QDBusConnectionInterface::ServiceRegistered;
        if (ownsName_) return Start::first;
        const auto answer = bus_.call(activationCall(kBusName, activationToken), QDBus::Block, kAnswer);
        if (!wasUnheard(answer)) break;
    }
    return Start::second;
}

SingleInstance::Start SingleInstance::claimInFolder(const QString& activationToken) {
    makePrivateFolder(folder_);
    lock_ = std::make_unique<QLockFile>(folder_ + QStringLiteral("/instance.lock"));
    lock_->setStaleLockTime(0);  // age says nothing; that of a program that crashed is found out by its number
    const QDeadlineTimer end(kUntilItListens);
    while (!lock_->tryLock(0) && lock_->error() == QLockFile::LockFailedError && !end.hasExpired()) {
        if (sendToSocket(socketPath(), activationToken)) return Start::second;
        std::this_thread::sleep_for(kBetweenTries);
    }
    // Where nothing can be locked, or nobody is behind the lock, a program that starts is better than none.
    listen();
    return Start::first;
}

void SingleInstance::listen() {
    QLocalServer::removeServer(socketPath());  // what a crash left
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_.get(), &QLocalServer::newConnection, this, &SingleInstance::takeVisitor);
    server_->listen(socketPath());
}

void SingleInstance::takeVisitor() {
    auto* const visitor = server_->nextPendingConnection();
    visitor->setReadBufferSize(kLongestToken);
    const auto read = [this, visitor] {
        if (!visitor->canReadLine()) return;
        emit activated(QString::fromUtf8(visitor->readLine().trimmed()));
        visitor->deleteLater();
    };
    connect(visitor, &QLocalSocket::readyRead, this, read);
    connect(visitor, &QLocalSocket::disconnected, visitor, &QObject::deleteLater);
    read();
}

QString SingleInstance::socketPath() const {
    return folder_ + QStringLiteral("/instance.socket");
}

}  // namespace vellomar
