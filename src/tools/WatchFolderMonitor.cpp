#include "tools/WatchFolderMonitor.h"

#include <utility>

#include <fmt/format.h>

#include "platform/Path.h"
#include "platform/TimeText.h"

namespace vellomar {
namespace {

// How late the kernel's news of a run's last file may be read.
constexpr auto kEcho = std::chrono::seconds(1);

bool isArrival(FileSystem& fileSystem, const std::string& path) {
    const auto status = fileSystem.statusFollowingLinks(path);
    return status && status->type != FileType::directory;
}

// Whether `folder` is `top` or lies in it, by whatever name. One that is not there yet will lie in its parent.
bool liesIn(FileSystem& fileSystem, std::string folder, const std::string& top) {
    const auto sought = fileSystem.statusFollowingLinks(top);
    while (!folder.empty() && folder != "/" && !fileSystem.statusFollowingLinks(folder))
        folder = parentPath(folder);
    std::optional<FileIdentity> below;
    while (true) {
        const auto status = fileSystem.statusFollowingLinks(folder);
        // Above the topmost folder is that folder itself.
        if (!sought || !status || status->identity == below) return false;
        if (status->identity == sought->identity) return true;
        below = status->identity;
        folder += "/..";
    }
}

}  // namespace

WatchFolderMonitor::WatchFolderMonitor(std::weak_ptr<OrganizerEngine> engine, const Surroundings& surroundings,
                                       std::function<void()> whenChanged)
    : engine_(std::move(engine)),
      surroundings_(surroundings),
      whenChanged_(std::move(whenChanged)),
      port_(std::make_shared<MainActorPort<WatchFolderMonitor>>(surroundings.mainActor, *this)) {}

WatchFolderMonitor::~WatchFolderMonitor() {
    port_->close();
    stop_.request_stop();
}

void WatchFolderMonitor::start(const std::string& source, const std::string& destination, const Options& options) {
    if (isWatching_) return;
    watchedPath_ = source;
    destPath_ = destination;
    pendingOptions_ = options;
    isWatching_ = true;
    appendWatchLog(fmt::format("Watching: {}", lastPathComponent(source)));
    stop_ = std::stop_source();
    if (auto stream = surroundings_.watcher.watch(source, taker())) stream_ = *std::move(stream);
    changed();
}

void WatchFolderMonitor::stop() {
    stop_.request_stop();
    stream_.reset();
    isWatching_ = false;
    appendWatchLog("Watch stopped.");
    changed();
}

void WatchFolderMonitor::appendWatchLog(std::string message) {
    port_->post([message = std::move(message)](WatchFolderMonitor& monitor) {
        monitor.log_.push_front(fmt::format("[{}] {}", timeOfDayText(monitor.surroundings_.clock.now()), message));
        if (monitor.log_.size() > kMostLines) monitor.log_.resize(kMostLines);
        monitor.changed();
    });
}

// Files are looked at on the watch's thread, so that the main actor waits for no disk.
FolderWatcher::Deliver WatchFolderMonitor::taker() const {
    return [port = port_, stop = stop_.get_token(), &fileSystem = surroundings_.fileSystem, source = watchedPath_,
            destination = destPath_](const FolderChanges& changes) {
        Arrivals arrivals{0, changes.since, liesIn(fileSystem, destination, source)};
        for (const auto& path : changes.paths) {
            if (stop.stop_requested()) return;
            if (isArrival(fileSystem, path)) ++arrivals.count;
        }
        port->post([arrivals, stop](WatchFolderMonitor& monitor) {
            if (!stop.stop_requested()) monitor.take(arrivals);
        });
    };
}

void WatchFolderMonitor::take(const Arrivals& arrivals) {
    const auto engine = engine_.lock();
    if (!engine || !pendingOptions_) return;
    if (engine->state().isRunning || engine->hasTask() || isHeldUp_ || isOwnWork(arrivals)) return;
    if (arrivals.count == 0) return;
    appendWatchLog(fmt::format("{} new file(s) detected — sorting…", arrivals.count));
    lastActivity_ = surroundings_.clock.now();
    engine->startRun({watchedPath_}, destPath_, *pendingOptions_);
    filesProcessed_ += arrivals.count;
    changed();
}

// Where the destination lies in the watched folder a run's own files arrive there too. Counted as arrivals they would
// begin a run after each run, without end, so that what came during the last run is left to the next event.
bool WatchFolderMonitor::isOwnWork(const Arrivals& arrivals) const {
    return arrivals.mayBeOurs && lastRunEnd_ && arrivals.since < *lastRunEnd_ + kEcho;
}

void WatchFolderMonitor::changed() const {
    if (whenChanged_) whenChanged_();
}

}  // namespace vellomar
