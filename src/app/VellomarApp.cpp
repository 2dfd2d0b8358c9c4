#include "app/VellomarApp.h"

#include <QDebug>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QVariantMap>

#include "ui/QmlModule.h"
#include "ui/thumbnails/ThumbnailDecoders.h"
#include "ui/thumbnails/ThumbnailImages.h"

namespace vellomar {
namespace {

std::unique_ptr<FileChooser> madeFor(QQmlEngine& qml, FileSystem& fileSystem,
                                     const VellomarApp::Surroundings& surroundings) {
    installQmlModule(qml);
    auto decoders = std::make_shared<ThumbnailDecoders>(fileSystem, surroundings.pixelDecoderProgram);
    // The engine takes it.
    qml.addImageProvider(QStringLiteral("thumbnails"),
                         new ThumbnailImages([decoders = std::move(decoders)](const std::string& path, int size) {
                             return decoders->decode(path, size);
                         }));
    return surroundings.makeFileChooser(qml, fileSystem);
}

}  // namespace

VellomarApp::VellomarApp(const Surroundings& surroundings)
    : settings_(fileSystem_, surroundings.settingsFile),
      userDefaults_(settings_),
      exifTool_(fileSystem_),
      metadataReaders_(fileSystem_, surroundings.decoderProgram),
      fileFacts_(fileSystem_, surroundings.decoderProgram),
      fileChooser_(madeFor(qml_, fileSystem_, surroundings)),
      folderWatcher_(fileSystem_, surroundings.watchTimes),
      engine_(std::make_shared<OrganizerEngine>(servicesFor(surroundings), &events_)),
      content_({*engine_, engine_, events_, mainActor_, settings_, fileSystem_, clock_, exifTool_, *fileChooser_,
                fileFacts_, surroundings.reveal, surroundings.links, background_, folderWatcher_, surroundings.mounts,
                surroundings.sleepInhibitor}) {
    connect(content_.quit(), &QuitFlow::finished, qGuiApp, &QGuiApplication::quit);
    connect(content_.status(), &RunStatus::changed, this, &VellomarApp::tellProgress);
    // Folders may have come and gone while the user looked elsewhere.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive) content_.folders()->look();
    });
}

VellomarApp::~VellomarApp() {
    // Lists leave rows that they once recycled to be deleted by the event loop, and an animation in one of them must
    // not outlive the QML engine.
    root_.reset();
    if (auto* const images = dynamic_cast<ThumbnailImages*>(qml_.imageProvider(QStringLiteral("thumbnails"))))
        images->end();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool VellomarApp::show() {
    QQmlComponent component(&qml_, QUrl(QStringLiteral("qrc:/qml/Vellomar/MainWindow.qml")));
    root_.reset(component.createWithInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&content_)}}));
    window_ = qobject_cast<QQuickWindow*>(root_.get());
    if (window_ == nullptr) {
        qCritical().noquote() << component.errorString();
        return false;
    }
    content_.appear();
    window_->show();
    return true;
}

void VellomarApp::raise(const QString& activationToken) {
    if (window_ == nullptr) return;
    // Where a compositor wants to see the token, Qt takes it from here.
    if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    if (window_->visibility() == QWindow::Minimized) window_->showNormal();
    window_->show();
    window_->raise();
    window_->requestActivate();
}

EngineServices VellomarApp::servicesFor(const Surroundings& surroundings) {
    return {mainActor_,    fileSystem_, clock_,           surroundings.notifications,      surroundings.sleepInhibitor,
            userDefaults_, exifTool_,   metadataReaders_, surroundings.pixelDecoderProgram};
}

void VellomarApp::tellProgress() {
    emit progressed(content_.status()->isRunning() ? content_.status()->progress() : -1);
}

}  // namespace vellomar
