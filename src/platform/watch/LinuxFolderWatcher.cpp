#include "platform/watch/LinuxFolderWatcher.h"

#include <utility>

#include "platform/watch/TreeWatch.h"

namespace vellomar {

Expected<std::unique_ptr<FolderWatch>> LinuxFolderWatcher::watch(const std::string& folder, Deliver deliver) {
    auto wakeUp = WakeUpCall::make();
    if (!wakeUp) return tl::unexpected(wakeUp.error());
    return std::make_unique<TreeWatch>(TreeWatch::Setup{fileSystem_, times_, mostWatches_, folder, std::move(deliver)},
                                       *std::move(wakeUp));
}

}  // namespace vellomar
