#include "platform/watch/TreeWatch.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

#include <poll.h>

#include "platform/FolderWalk.h"
#include "platform/ThreadPriority.h"

namespace vellomar {
namespace {

using std::chrono::steady_clock;

Instant timeOf(clockid_t clock) {
    timespec now{};
    ::clock_gettime(clock, &now);
    return Instant(std::chrono::seconds(now.tv_sec) + std::chrono::microseconds(now.tv_nsec / 1000));
}

// A time that no file bears so far, and that none changed from now on comes before. Files may be stamped by a clock
// that lags behind by some milliseconds, so this waits until that is past the present.
Instant nextFileTime() {
    const auto asked = timeOf(CLOCK_REALTIME);
    while (true) {
        const auto now = timeOf(CLOCK_REALTIME_COARSE);
        if (now > asked) return now;
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
}

}  // namespace

TreeWatch::TreeWatch(Setup setup, WakeUpCall wakeUp)
    : setup_(std::move(setup)),
      wakeUp_(std::move(wakeUp)),
      started_(nextFileTime()),
      window_(setup_.times.latency),
      nextPresence_(steady_clock::now()),
      nextLookOver_(nextPresence_),
      allHeard_(nextPresence_),
      thread_([this](const std::stop_token& stop) { watch(stop); }) {}

TreeWatch::~TreeWatch() {
    thread_.request_stop();
    wakeUp_.call();
}

void TreeWatch::watch(const std::stop_token& stop) {
    lowerPriorityOfThisThread();
    lookOver(Look::first, stop);
    while (!stop.stop_requested()) {
        waitForSomething();
        takeEvents(stop);
        lookIfDue(stop);
        deliverWhatArrived(stop);
    }
}

void TreeWatch::waitForSomething() {
    const auto until = std::min(nextPresence_, window_.end().value_or(nextPresence_));
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(until - steady_clock::now());
    std::array<pollfd, 2> awaited{{{wakeUp_.descriptor(), POLLIN, 0}, {-1, POLLIN, 0}}};
    if (watches_) awaited[1].fd = watches_->descriptor();
    // That a signal may end it early does no harm.
    ::poll(awaited.data(), awaited.size(), static_cast<int>(std::max<std::int64_t>(wait.count(), 0)));
}

void TreeWatch::takeEvents(const std::stop_token& stop) {
    if (!watches_) return;
    const auto now = steady_clock::now();
    const bool isNoneLeft = watches_->read([&](const InotifyWatches::Event& event) {
        if (!stop.stop_requested()) takeEvent(event, stop);
    });
    if (isNoneLeft && hearsAll() && !mustLookOver_) allHeard_ = now;
}

void TreeWatch::takeEvent(const InotifyWatches::Event& event, const std::stop_token& stop) {
    using Kind = InotifyWatches::Event::Kind;
    switch (event.kind) {
        case Kind::fileComplete: return window_.addArrived(event.path, steady_clock::now());
        case Kind::fileCreated: return takeCreated(event.path);
        case Kind::folderCame: return enter(event.path, stop);
        case Kind::topWent:
        case Kind::eventsDropped: mustLookOver_ = true;
    }
}

// A second name of a file that is there, and a symlink, are never closed. All else will be.
void TreeWatch::takeCreated(const std::string& path) {
    const auto status = setup_.fileSystem.status(path);
    if (!status || (status->type == FileType::regular && status->links == 1)) return;
    window_.addArrived(path, steady_clock::now());
}

void TreeWatch::enter(const std::string& folder, const std::stop_token& stop) {
    if (watches_) watches_->add(folder);
    // It may have gone again already.
    static_cast<void>(walk(folder, stop, [&](std::string path, const FileStatus& file) {
        window_.addFound(std::move(path), file.size, allHeard_, steady_clock::now());
    }));
}

void TreeWatch::deliverWhatArrived(const std::stop_token& stop) {
    const auto now = steady_clock::now();
    if (!window_.end() || now < *window_.end()) return;
    auto changes = window_.close(setup_.fileSystem, known_, now, stop);
    if (!changes.paths.empty() && !stop.stop_requested()) setup_.deliver(std::move(changes));
}

void TreeWatch::lookIfDue(const std::stop_token& stop) {
    const auto now = steady_clock::now();
    if (!mustLookOver_ && now < nextPresence_) return;
    nextPresence_ = now + setup_.times.presence;
    const bool isLookOverDue = !hearsAll() && now >= nextLookOver_;
    if (mustLookOver_ || isLookOverDue || !isStillThere()) lookOver(Look::again, stop);
}

bool TreeWatch::isStillThere() {
    const auto status = setup_.fileSystem.statusFollowingLinks(setup_.folder);
    return identity_ && status && status->identity == *identity_;
}

void TreeWatch::lookOver(Look look, const std::stop_token& stop) {
    const auto begun = steady_clock::now();
    const auto status = setup_.fileSystem.statusFollowingLinks(setup_.folder);
    if (!status || status->type != FileType::directory) return loseFolder();
    const bool isRegular = !mustLookOver_ && identity_ == status->identity;
    listen(status->identity);
    FolderRecord known;
    const bool wasThere = walk(setup_.folder, stop, [&](std::string path, const FileStatus& file) {
        // What is new is known once it was told.
        if (isNew(look, path, file))
            window_.addFound(std::move(path), file.size, allHeard_, begun);
        else
            known.add(path, file.size);
    });
    const bool isComplete = wasThere && !stop.stop_requested() && isStillThere();
    // While it comes and goes only a part of it may have been seen, or, with its volume unplugged, nothing. The rest
    // must not be new when it is back.
    if (!isComplete || !isRegular) known.add(known_);
    known.settle();
    known_ = std::move(known);
    if (!isComplete) return loseFolder();
    allHeard_ = begun;
    nextLookOver_ = steady_clock::now() + setup_.times.lookOver;
}

void TreeWatch::listen(const FileIdentity& folder) {
    if (mustLookOver_ || identity_ != folder) watches_.reset();
    mustLookOver_ = false;
    identity_ = folder;
    isLocal_ = setup_.fileSystem.volumeIsLocal(setup_.folder).value_or(true);
    if (!watches_)
        if (auto opened = InotifyWatches::open(setup_.mostWatches)) watches_.emplace(*std::move(opened));
    if (!watches_) return;
    watches_->forgetRefusals();
    watches_->addTop(setup_.folder);
}

void TreeWatch::loseFolder() {
    watches_.reset();
    identity_.reset();
    mustLookOver_ = false;
}

// What came while the first look was still on its way there is new; by another machine's clock that cannot be told.
bool TreeWatch::isNew(Look look, const std::string& path, const FileStatus& file) const {
    if (look == Look::again) return !known_.holds(path, file.size);
    return isLocal_ && file.statusChanged >= started_;
}

template <typename Take>
bool TreeWatch::walk(const std::string& folder, const std::stop_token& stop, Take take) {
    auto opened = FolderWalk::open(setup_.fileSystem, folder, stop, {.withHiddenNames = true, .entered = nullptr});
    if (!opened) return false;
    while (const auto entry = opened->next()) {
        // A folder is watched before it is listed: rather is a file told twice than not at all.
        if (entry->type == FileType::directory) {
            if (watches_) watches_->add(entry->path());
        } else if (const auto status = opened->statusOf(*entry)) {
            take(entry->path(), *status);
        }
    }
    return true;
}

}  // namespace vellomar
