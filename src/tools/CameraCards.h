#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/MainActorPort.h"
#include "platform/watch/MountWatcher.h"

namespace vellomar {

// Where a camera puts its pictures, at the top of its card.
inline constexpr std::string_view kCameraFolder = "DCIM";

// Tells of camera cards, and of whatever else has a camera's folder, as they are mounted. The main actor's.
class CameraCards {
public:
    // `whenMounted` is called on the main actor, with the card's mount point. The others must outlive this. Where the
    // system tells of no mounts nothing ever comes.
    CameraCards(MainActor& mainActor, FileSystem& fileSystem, MountWatcher& watcher,
                std::function<void(const std::string& card)> whenMounted);
    ~CameraCards();
    CameraCards(const CameraCards&) = delete;
    CameraCards& operator=(const CameraCards&) = delete;

private:
    const std::function<void(const std::string&)> whenMounted_;
    const std::shared_ptr<MainActorPort<CameraCards>> port_;
    std::unique_ptr<MountWatch> watch_;  // goes first
};

}  // namespace vellomar
