#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <unordered_map>

#include "platform/FileSystem.h"
#include "platform/watch/FolderRecord.h"
#include "platform/watch/FolderWatcher.h"

namespace vellomar {

// Gathers what happens in a folder for a while, from the first event on, so that a burst is delivered at once.
//
// A file whose closing was heard has arrived. One that was merely found, because nobody was listening when it came, may
// still be written to: it has arrived when it is as large at the end of a window as before. One thread's at a time.
class ArrivalWindow {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit ArrivalWindow(std::chrono::milliseconds length) : length_(length) {}

    // Something stands at `path` complete, as of `now`.
    void addArrived(std::string path, Time now);

    // A file of `size` bytes was found, which came at `since` at the earliest.
    void addFound(std::string path, std::int64_t size, Time since, Time now);

    // When the window ends; nothing while it is not open.
    [[nodiscard]] std::optional<Time> end() const { return end_; }

    // Ends the window. What has arrived is returned and put into `record`; what has not stays for the next window,
    // which begins at once. Asked to stop it leaves the rest unlooked at.
    [[nodiscard]] FolderChanges close(FileSystem& fileSystem, FolderRecord& record, Time now,
                                      const std::stop_token& stop = {});

private:
    static constexpr std::int64_t kArrived = -1;

    void open(Time since, Time now);
    // Whether what stands there has arrived; nothing if it is gone.
    [[nodiscard]] static std::optional<bool> hasArrived(const Expected<FileStatus>& status, std::int64_t& size);

    const std::chrono::milliseconds length_;
    std::optional<Time> end_;
    Time since_{};
    std::unordered_map<std::string, std::int64_t> sizes_;  // by path: the size at the last look, or kArrived
};

}  // namespace vellomar
