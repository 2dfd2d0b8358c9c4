#include "tools/CameraCards.h"

#include <utility>

#include "platform/Path.h"

namespace vellomar {
namespace {

bool hasCameraFolder(FileSystem& fileSystem, const Mount& mount) {
    // No volume but a trap that mounts one when somebody looks; what it mounts is told by itself.
    if (mount.type == "autofs") return false;
    return fileSystem.statusFollowingLinks(joinPath(mount.path, kCameraFolder)).has_value();
}

}  // namespace

CameraCards::CameraCards(MainActor& mainActor, FileSystem& fileSystem, MountWatcher& watcher,
                         std::function<void(const std::string&)> whenMounted)
    : whenMounted_(std::move(whenMounted)), port_(std::make_shared<MainActorPort<CameraCards>>(mainActor, *this)) {
    auto watch = watcher.watch([port = port_, &fileSystem](const Mount& mount) {
        if (hasCameraFolder(fileSystem, mount))
            port->post([card = mount.path](CameraCards& cards) { cards.whenMounted_(card); });
    });
    if (watch) watch_ = *std::move(watch);
}

CameraCards::~CameraCards() {
    port_->close();
}

}  // namespace vellomar
