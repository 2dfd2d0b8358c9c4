#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QQmlEngine>

#include "platform/FileSystem.h"
#include "ui/desktop/FileChooser.h"
#include "ui/desktop/PortalFileChooser.h"
#include "ui/desktop/QtFileChooser.h"

namespace vellomar {

// What the application chooses files with: the portal's dialog, or Qt's where there is no portal. Which of the two is
// found out with each question by asking the portal, so that one that is started later is used.
class DesktopFileChooser final : public QObject, public FileChooser {
public:
    // `engine`, which knows our QML module, and `fileSystem` must stay as long as this.
    DesktopFileChooser(const QDBusConnection& sessionBus, QQmlEngine& engine, FileSystem& fileSystem);

    void choose(const FileQuestion& question, Done done) override;

private:
    QtFileChooser fallback_;
    PortalFileChooser portal_;
};

}  // namespace vellomar
