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

struct CameraCards::Link {
    std::function<void(const std::string&)> whenMounted;  // the main actor's; empty once the cards are gone
};

CameraCards::CameraCards(MainActor& mainActor, FileSystem& fileSystem, MountWatcher& watcher,
                         std::function<void(const std::string&)> whenMounted)
    : link_(std::make_shared<Link>(Link{std::move(whenMounted)})) {
    auto watch = watcher.watch([&mainActor, &fileSystem, link = link_](const Mount& mount) {
        if (!hasCameraFolder(fileSystem, mount)) return;
        mainActor.post([link, card = mount.path] {
            if (link->whenMounted) link->whenMounted(card);
        });
    });
    if (watch) watch_ = *std::move(watch);
}

CameraCards::~CameraCards() {
    link_->whenMounted = {};
}

}  // namespace vellomar
