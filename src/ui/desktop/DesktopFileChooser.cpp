#include "ui/desktop/DesktopFileChooser.h"

#include <utility>

namespace vellomar {

DesktopFileChooser::DesktopFileChooser(const QDBusConnection& sessionBus, QQmlEngine& engine, FileSystem& fileSystem)
    : fallback_(engine, fileSystem, this), portal_(sessionBus, fallback_) {}

void DesktopFileChooser::choose(const FileQuestion& question, Done done) {
    portal_.choose(question, std::move(done));
}

}  // namespace vellomar
