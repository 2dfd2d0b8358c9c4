#pragma once

#include <QDBusConnection>
#include <QObject>
#include <functional>
#include <string>

#include "ui/desktop/FileReveal.h"

namespace vellomar {

// Opens a folder, given by its absolute path, in whatever program the desktop has for folders.
void openFolderOnDesktop(const std::string& folder);

// Has the desktop's file manager show the file, selected, in its folder. Where none listens, the folder is opened.
class DesktopFileReveal final : public QObject, public FileReveal {
public:
    using OpenFolder = std::function<void(const std::string& folder)>;

    explicit DesktopFileReveal(QDBusConnection sessionBus, OpenFolder openFolder = openFolderOnDesktop);

    void reveal(const std::string& path) override;

private:
    QDBusConnection bus_;
    const OpenFolder openFolder_;
};

}  // namespace vellomar
