#include "platform/watch/InotifyWatches.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <iterator>

#include <sys/inotify.h>
#include <unistd.h>

#include "platform/Path.h"
#include "platform/Uninterrupted.h"

namespace vellomar {
namespace {

// A file's arrival is its closing: at its creation it is still empty. What is read, or goes, is no arrival.
constexpr std::uint32_t kArrivals = IN_CREATE | IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_ONLYDIR;
constexpr std::uint32_t kTop = kArrivals | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t kTopWent = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;
constexpr int kMostReads = 16;
constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

}  // namespace

Expected<InotifyWatches> InotifyWatches::open(std::size_t limit) {
    FileDescriptor queue(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!queue.isOpen()) return systemFailure(errno);
    return InotifyWatches(std::move(queue), limit);
}

void InotifyWatches::addTop(const std::string& folder) {
    top_ = watch(folder, kTop);
}

void InotifyWatches::add(const std::string& folder) {
    static_cast<void>(watch(folder, kArrivals | IN_DONT_FOLLOW));
}

bool InotifyWatches::read(const std::function<void(const Event&)>& take) {
    alignas(inotify_event) std::array<char, kBufferSize> buffer{};
    for (int reads = 0; reads < kMostReads; ++reads) {
        const auto length = uninterrupted([&] { return ::read(queue_.get(), buffer.data(), buffer.size()); });
        if (length <= 0) return true;
        takeAll({buffer.data(), static_cast<std::size_t>(length)}, take);
    }
    return false;
}

void InotifyWatches::takeAll(std::span<const char> events, const std::function<void(const Event&)>& take) {
    while (!events.empty()) {
        // The kernel aligns them.
        const auto* event = reinterpret_cast<const inotify_event*>(events.data());
        if (const auto told = this->take(*event)) take(*told);
        events = events.subspan(sizeof *event + event->len);
    }
}

std::optional<int> InotifyWatches::watch(const std::string& folder, std::uint32_t mask) {
    const bool isAllowed = folders_.size() < limit_;
    const int watch = isAllowed ? ::inotify_add_watch(queue_.get(), folder.c_str(), mask) : -1;
    if (watch < 0) {
        // Other failures say that there is no such folder, or none that this user may look into.
        if (!isAllowed || errno == ENOSPC || errno == ENOMEM) isIncomplete_ = true;
        return std::nullopt;
    }
    folders_.insert_or_assign(watch, folder);
    return watch;
}

std::optional<InotifyWatches::Event> InotifyWatches::take(const inotify_event& event) {
    if ((event.mask & IN_Q_OVERFLOW) != 0) return Event{Event::Kind::eventsDropped, {}};
    if (event.wd == top_ && (event.mask & kTopWent) != 0) return Event{Event::Kind::topWent, folders_[event.wd]};
    if ((event.mask & IN_IGNORED) != 0) folders_.erase(event.wd);
    return takeFromBelow(event);
}

std::optional<InotifyWatches::Event> InotifyWatches::takeFromBelow(const inotify_event& event) {
    const auto folder = folders_.find(event.wd);
    if (folder == folders_.end() || event.len == 0) return std::nullopt;
    auto path = joinPath(folder->second, event.name);
    const bool isFolder = (event.mask & IN_ISDIR) != 0;
    if ((event.mask & IN_MOVED_FROM) != 0) {
        if (isFolder) removeFrom(path);
        return std::nullopt;
    }
    if (isFolder) return Event{Event::Kind::folderCame, std::move(path)};
    return Event{(event.mask & IN_CREATE) != 0 ? Event::Kind::fileCreated : Event::Kind::fileComplete, std::move(path)};
}

// A watch goes with its folder wherever that is moved, and would tell its old path from there.
void InotifyWatches::removeFrom(const std::string& folder) {
    for (auto watched = folders_.begin(); watched != folders_.end();) {
        const bool isGone = isWithin(watched->second, folder);
        if (isGone) ::inotify_rm_watch(queue_.get(), watched->first);
        watched = isGone ? folders_.erase(watched) : std::next(watched);
    }
}

}  // namespace vellomar
