#pragma once

#include "platform/watch/MountWatcher.h"

namespace vellomar {

// By the kernel's mount table, which wakes whoever waits for its changes. What is told is what the thread that asks
// for the watch can see.
class LinuxMountWatcher final : public MountWatcher {
public:
    // Fails where the table cannot be read.
    [[nodiscard]] Expected<std::unique_ptr<MountWatch>> watch(Deliver deliver) override;
};

}  // namespace vellomar
