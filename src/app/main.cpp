// Starts Vellomar on the user's desktop, or shows the window of the one that runs.
#include <QDBusConnection>
#include <QGuiApplication>
#include <QIcon>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/AboutText.h"
#include "app/VellomarApp.h"
#include "platform/watch/LinuxMountWatcher.h"
#include "ui/QmlModule.h"
#include "ui/desktop/DesktopFileChooser.h"
#include "ui/desktop/DesktopFileReveal.h"
#include "ui/desktop/DesktopLinkOpener.h"
#include "ui/desktop/DesktopNotifications.h"
#include "ui/desktop/DesktopSleepInhibitor.h"
#include "ui/desktop/LauncherProgress.h"
#include "ui/desktop/SingleInstance.h"
#include "ui/desktop/TerminationSignals.h"

namespace vellomar {
namespace {

// Programs that only this one starts lie at this place beside it, built or installed.
std::string companionProgram(const char* name) {
    return QCoreApplication::applicationDirPath().toStdString() + "/" VELLOMAR_LIBEXEC_FROM_BIN "/" + name;
}

void nameApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("vellomar"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELLOMAR_VERSION));
    // By this the desktop finds the name and the icon of a window.
    QGuiApplication::setDesktopFileName(QStringLiteral("vellomar"));
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("vellomar"), QIcon(QStringLiteral(":/vellomar.svg"))));
}

void showProgress(LauncherProgress& launcher, double fraction) {
    if (fraction < 0)
        launcher.hide();
    else
        launcher.show(fraction);
}

int run(const QString& activationToken, TerminationSignals& termination) {
    const auto session = QDBusConnection::sessionBus();
    SingleInstance instance(session);
    if (instance.claim(activationToken) == SingleInstance::Start::second) return 0;

    DesktopNotifications notifications(session);
    DesktopSleepInhibitor sleepInhibitor(session, QDBusConnection::systemBus());
    LauncherProgress launcher(session);
    DesktopFileReveal reveal(session);
    DesktopLinkOpener links;
    LinuxMountWatcher mounts;
    VellomarApp application({.settingsFile = SettingsStore::defaultFile(),
                             .decoderProgram = companionProgram("vellomar-decoder"),
                             .pixelDecoderProgram = companionProgram("vellomar-pixel-decoder"),
                             .notifications = notifications,
                             .sleepInhibitor = sleepInhibitor,
                             .reveal = reveal,
                             .links = links,
                             .mounts = mounts,
                             .watchTimes = {},
                             .makeFileChooser = [&session](QQmlEngine& engine, FileSystem& fileSystem) {
                                 return std::make_unique<DesktopFileChooser>(session, engine, fileSystem);
                             }});
    QObject::connect(&application, &VellomarApp::progressed, &launcher,
                     [&launcher](double fraction) { showProgress(launcher, fraction); });
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, application.content().planWindow(),
                     &PlanWindow::noteApplicationState);
    QObject::connect(&instance, &SingleInstance::activated, &application, &VellomarApp::raise);
    // There is nobody to ask; what is under way comes to a good end all the same.
    QObject::connect(&termination, &TerminationSignals::asked, application.content().quit(), &QuitFlow::quit);
    termination.listen();
    return application.show() ? QCoreApplication::exec() : 1;
}

}  // namespace
}  // namespace vellomar

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (const auto answer = vellomar::answerTo(std::vector<const char*>(arguments.begin() + 1, arguments.end()))) {
        std::fputs(answer->c_str(), stdout);
        return 0;
    }
    vellomar::TerminationSignals termination;
    const auto activationToken = vellomar::SingleInstance::activationTokenOfThisStart();
    const QGuiApplication application(argc, argv);
    vellomar::nameApplication();
    vellomar::chooseStyle();
    return vellomar::run(activationToken, termination);
}
