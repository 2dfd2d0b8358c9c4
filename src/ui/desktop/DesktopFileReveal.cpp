#include "ui/desktop/DesktopFileReveal.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QStringList>
#include <QUrl>
#include <utility>

#include "platform/Path.h"
#include "ui/desktop/BusCall.h"
#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

QDBusMessage showItem(const std::string& path) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QString::fromStdString(fileUriOf(path))} << QString();
    return call;
}

}  // namespace

void openFolderOnDesktop(const std::string& folder) {
    QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(fileUriOf(folder))));
}

DesktopFileReveal::DesktopFileReveal(QDBusConnection sessionBus, OpenFolder openFolder)
    : bus_(std::move(sessionBus)), openFolder_(std::move(openFolder)) {}

void DesktopFileReveal::reveal(const std::string& path) {
    callBus(bus_, showItem(path), *this, [this, path](const QDBusMessage& answer) {
        if (isFailure(answer)) openFolder_(std::string(parentPath(path)));
    });
}

}  // namespace vellomar
