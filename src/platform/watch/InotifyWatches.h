#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

struct inotify_event;

namespace vellomar {

// The kernel's watches over a folder and all folders in it, each of which needs one of its own. One thread's at a time.
class InotifyWatches {
public:
    struct Event {
        enum class Kind {
            fileComplete,   // closed after writing, or moved here
            fileCreated,    // a name that is new; a file of that name may only begin to be written
            folderCame,     // made, or moved here with all that is in it
            topWent,        // the watched folder itself: removed, moved, or its volume is gone
            eventsDropped,  // the kernel's queue was full
        };

        Kind kind = Kind::fileComplete;
        std::string path;
    };

    // Of those that the user may have (of all programs together), at most `limit` are used.
    static constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);
    [[nodiscard]] static Expected<InotifyWatches> open(std::size_t limit = kNoLimit);

    // Readable when there are events.
    [[nodiscard]] int descriptor() const { return queue_.get(); }

    // Watches the folder at the top of all, once; a symlink is followed.
    void addTop(const std::string& folder);

    // Watches a folder below; not what is in it. One that is gone by now needs no watch.
    void add(const std::string& folder);

    // Calls `take` for the events that are there, without waiting; in a flood not for all. True if none is left.
    [[nodiscard]] bool read(const std::function<void(const Event&)>& take);

    // Whether a folder could not be watched because there was no watch left for it.
    [[nodiscard]] bool isIncomplete() const { return isIncomplete_; }

    // To be called before all folders are added once more: there may be watches left by now.
    void forgetRefusals() { isIncomplete_ = false; }

private:
    InotifyWatches(FileDescriptor queue, std::size_t limit) : queue_(std::move(queue)), limit_(limit) {}

    // The kernel's number of the watch; nothing if there is none.
    [[nodiscard]] std::optional<int> watch(const std::string& folder, std::uint32_t mask);
    void takeAll(std::span<const char> events, const std::function<void(const Event&)>& take);
    [[nodiscard]] std::optional<Event> take(const inotify_event& event);
    [[nodiscard]] std::optional<Event> takeFromBelow(const inotify_event& event);
    void removeFrom(const std::string& folder);

    FileDescriptor queue_;
    std::size_t limit_;
    std::optional<int> top_;
    std::unordered_map<int, std::string> folders_;  // by the kernel's number of the watch
    bool isIncomplete_ = false;
};

}  // namespace vellomar
