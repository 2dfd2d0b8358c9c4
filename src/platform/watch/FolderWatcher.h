#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Error.h"

namespace vellomar {

// What happened below a watched folder within a short while.
struct FolderChanges {
    // What came or was changed, each path once, in no order. By the time this is read anything may stand there, or
    // nothing.
    std::vector<std::string> paths;

    // All of it happened at this time or later.
    std::chrono::steady_clock::time_point since;
};

// A folder is watched as long as this lives. Destroying it waits for one call to the disk at most, and for the delivery
// under way.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;
};

// Tells which files arrive in a folder, and in all folders in it. Any thread.
class FolderWatcher {
public:
    // Called on a thread of the watch, one delivery after the other.
    using Deliver = std::function<void(FolderChanges)>;

    virtual ~FolderWatcher() = default;

    // From now on what happens below `folder`, an absolute path, is delivered; what was there before never is. A folder
    // that is not there (yet, or for a while) is no failure: it is watched as soon as it is. Takes some milliseconds.
    [[nodiscard]] virtual Expected<std::unique_ptr<FolderWatch>> watch(const std::string& folder, Deliver deliver) = 0;
};

}  // namespace vellomar
