#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QWindow>
#include <memory>
#include <string>
#include <vector>

#include "ui/desktop/FileChooser.h"
#include "ui/desktop/PortalRequest.h"

namespace vellomar {

// How a portal is told of the window with the number `window` on the platform that Qt calls `platform`. Empty where it
// cannot be told.
[[nodiscard]] QString portalWindowName(const QString& platform, WId window);

// The desktop's own dialog, by way of the portal. It works for a sandboxed program too, and several folders can be
// chosen at once. Where the portal is missing or fails, `fallback` is asked the same.
//
// What is chosen but is no file of this machine is left out.
class PortalFileChooser final : public QObject, public FileChooser {
public:
    // `fallback` must stay as long as this.
    PortalFileChooser(QDBusConnection sessionBus, FileChooser& fallback);

    void choose(const FileQuestion& question, Done done) override;

private:
    void takeAnswer(uint response, const QVariantMap& results);
    void askFallback(const FileQuestion& question);
    void finish(const std::vector<std::string>& paths);

    QDBusConnection bus_;
    FileChooser& fallback_;
    std::unique_ptr<PortalRequest> request_;
    Done done_;  // empty while no dialog is open
};

}  // namespace vellomar
