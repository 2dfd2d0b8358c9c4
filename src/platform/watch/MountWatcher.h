#pragma once

#include <functional>
#include <memory>

#include "platform/Error.h"
#include "platform/MountTable.h"

namespace vellomar {

// Mounts are told as long as this lives. Destroying it waits for the delivery under way.
class MountWatch {
public:
    virtual ~MountWatch() = default;
};

// Tells which volumes are mounted. Any thread.
class MountWatcher {
public:
    // Called on a thread of the watch, right behind the mount; one delivery after the other.
    using Deliver = std::function<void(const Mount&)>;

    virtual ~MountWatcher() = default;

    // From now on each mount is delivered, whatever its kind; those that there are already never are.
    [[nodiscard]] virtual Expected<std::unique_ptr<MountWatch>> watch(Deliver deliver) = 0;
};

}  // namespace vellomar
