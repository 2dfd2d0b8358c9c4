#pragma once

#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "platform/FileSystem.h"
#include "platform/Instant.h"
#include "platform/WakeUpCall.h"
#include "platform/watch/ArrivalWindow.h"
#include "platform/watch/FolderRecord.h"
#include "platform/watch/FolderWatcher.h"
#include "platform/watch/InotifyWatches.h"
#include "platform/watch/WatchTimes.h"

namespace vellomar {

// One watched folder, on a thread that begins and ends with this.
class TreeWatch final : public FolderWatch {
public:
    struct Setup {
        FileSystem& fileSystem;
        WatchTimes times;
        std::size_t mostWatches;
        std::string folder;
        FolderWatcher::Deliver deliver;
    };

    TreeWatch(Setup setup, WakeUpCall wakeUp);
    ~TreeWatch() override;
    TreeWatch(const TreeWatch&) = delete;
    TreeWatch& operator=(const TreeWatch&) = delete;

private:
    using Time = ArrivalWindow::Time;
    enum class Look { first, again };

    void watch(const std::stop_token& stop);
    void waitForSomething();
    void takeEvents(const std::stop_token& stop);
    void takeEvent(const InotifyWatches::Event& event, const std::stop_token& stop);
    void takeCreated(const std::string& path);
    // Takes a folder that came, with all that is in it.
    void enter(const std::string& folder, const std::stop_token& stop);
    void deliverWhatArrived(const std::stop_token& stop);

    void lookIfDue(const std::stop_token& stop);
    // Whether all that happens in the folder is heard.
    [[nodiscard]] bool hearsAll() const { return watches_ && isLocal_ && !watches_->isIncomplete(); }
    // Whether the folder that stands there is the one that was looked over.
    [[nodiscard]] bool isStillThere();
    void lookOver(Look look, const std::stop_token& stop);
    void listen(const FileIdentity& folder);
    void loseFolder();
    [[nodiscard]] bool isNew(Look look, const std::string& path, const FileStatus& file) const;

    // Watches all folders below and calls `take` with the path and the status of each file. False if the folder itself
    // cannot be listed.
    template <typename Take>
    [[nodiscard]] bool walk(const std::string& folder, const std::stop_token& stop, Take take);

    const Setup setup_;
    const WakeUpCall wakeUp_;
    const Instant started_;
    std::optional<FileIdentity> identity_;   // of the folder; nothing while it is not there
    std::optional<InotifyWatches> watches_;  // none while it is not there, or where the kernel refuses
    bool isLocal_ = true;
    bool mustLookOver_ = false;  // and not count on the watches that there are
    FolderRecord known_;
    ArrivalWindow window_;
    Time nextPresence_;
    Time nextLookOver_;
    Time allHeard_;  // whatever came earlier has been heard of
    std::jthread thread_;
};

}  // namespace vellomar
