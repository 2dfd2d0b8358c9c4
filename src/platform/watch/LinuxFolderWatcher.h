#pragma once

#include <cstddef>

#include "platform/FileSystem.h"
#include "platform/watch/FolderWatcher.h"
#include "platform/watch/InotifyWatches.h"
#include "platform/watch/WatchTimes.h"

namespace vellomar {

// Watches by inotify. Where that hears too little, because the folder lies on a network, where other machines write as
// well, or because there are not enough watches for all its folders, everything is also looked over every while, by
// names and sizes; and once when the kernel had to drop events. So an arrival may be told late, but is never lost.
class LinuxFolderWatcher final : public FolderWatcher {
public:
    // Of the kernel's watches `mostWatches` are used at most. `fileSystem` must outlive this and all watches.
    explicit LinuxFolderWatcher(FileSystem& fileSystem, const WatchTimes& times = {},
                                std::size_t mostWatches = InotifyWatches::kNoLimit)
        : fileSystem_(fileSystem), times_(times), mostWatches_(mostWatches) {}

    // Fails where the process has no descriptor left.
    [[nodiscard]] Expected<std::unique_ptr<FolderWatch>> watch(const std::string& folder, Deliver deliver) override;

private:
    FileSystem& fileSystem_;
    const WatchTimes times_;
    const std::size_t mostWatches_;
};

}  // namespace vellomar
