#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

#include "engine/OrganizerEngine.h"
#include "engine/model/Options.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Instant.h"
#include "platform/MainActorPort.h"
#include "platform/watch/FolderWatcher.h"

namespace vellomar {

// Has a folder sorted anew whenever files arrive in it, with the options of the time when the watching began. The main
// actor's alone, but for appendWatchLog().
class WatchFolderMonitor {
public:
    // All of it must outlive this.
    struct Surroundings {
        MainActor& mainActor;
        FileSystem& fileSystem;
        const Clock& clock;
        FolderWatcher& watcher;
    };

    // The most lines that the log keeps.
    static constexpr std::size_t kMostLines = 100;

    // `whenChanged`, which may be empty, is called after every change of what is told below.
    WatchFolderMonitor(std::weak_ptr<OrganizerEngine> engine, const Surroundings& surroundings,
                       std::function<void()> whenChanged = {});
    ~WatchFolderMonitor();
    WatchFolderMonitor(const WatchFolderMonitor&) = delete;
    WatchFolderMonitor& operator=(const WatchFolderMonitor&) = delete;

    // Watches `source` from now on, and sorts it into `destination`; both are absolute paths. Does nothing while
    // another is watched. That the folder cannot be watched is told nowhere; it counts as watched all the same.
    void start(const std::string& source, const std::string& destination, const Options& options);

    void stop();

    // While held up, because something else works on the files, no run is begun; what arrives is dropped, as during a
    // run.
    void setHeldUp(bool isHeldUp) { isHeldUp_ = isHeldUp; }

    // To be called when a run has ended, whoever began it.
    void noteRunEnd() { lastRunEnd_ = surroundings_.clock.steadyNow(); }

    // Adds a line with the time of day in front. Any thread; returns at once.
    void appendWatchLog(std::string message);

    [[nodiscard]] bool isWatching() const { return isWatching_; }

    // The last that were watched; empty before.
    [[nodiscard]] const std::string& watchedPath() const { return watchedPath_; }
    [[nodiscard]] const std::string& destPath() const { return destPath_; }

    // How many arrivals made a run begin, in all; a file that comes twice counts twice.
    [[nodiscard]] std::size_t filesProcessed() const { return filesProcessed_; }
    [[nodiscard]] const std::optional<Instant>& lastActivity() const { return lastActivity_; }

    // The newest line comes first.
    [[nodiscard]] const std::deque<std::string>& log() const { return log_; }

private:
    // What a delivery comes down to.
    struct Arrivals {
        std::size_t count = 0;
        std::chrono::steady_clock::time_point since;
        bool mayBeOurs = false;  // the destination lies in the watched folder
    };

    [[nodiscard]] FolderWatcher::Deliver taker() const;
    void take(const Arrivals& arrivals);
    [[nodiscard]] bool isOwnWork(const Arrivals& arrivals) const;
    void changed() const;

    const std::weak_ptr<OrganizerEngine> engine_;
    const Surroundings surroundings_;
    const std::function<void()> whenChanged_;
    std::optional<Options> pendingOptions_;
    std::string watchedPath_;
    std::string destPath_;
    std::size_t filesProcessed_ = 0;
    std::optional<Instant> lastActivity_;
    std::optional<std::chrono::steady_clock::time_point> lastRunEnd_;
    std::deque<std::string> log_;
    bool isWatching_ = false;
    bool isHeldUp_ = false;
    const std::shared_ptr<MainActorPort<WatchFolderMonitor>> port_;  // by which other threads reach this
    std::stop_source stop_;                                          // ends the delivery under way
    std::unique_ptr<FolderWatch> stream_;                            // goes first
};

}  // namespace vellomar
