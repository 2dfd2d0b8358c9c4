#include "platform/watch/ArrivalWindow.h"

#include <algorithm>
#include <utility>

namespace vellomar {

void ArrivalWindow::addArrived(std::string path, Time now) {
    sizes_.insert_or_assign(std::move(path), kArrived);
    open(now, now);
}

void ArrivalWindow::addFound(std::string path, std::int64_t size, Time since, Time now) {
    sizes_.try_emplace(std::move(path), size);
    open(since, now);
}

FolderChanges ArrivalWindow::close(FileSystem& fileSystem, FolderRecord& record, Time now,
                                   const std::stop_token& stop) {
    FolderChanges changes{{}, since_};
    for (auto file = sizes_.begin(); file != sizes_.end() && !stop.stop_requested();) {
        const auto status = fileSystem.status(file->first);
        const auto arrived = hasArrived(status, file->second);
        if (arrived.value_or(false)) {
            record.add(file->first, status->size);
            changes.paths.push_back(file->first);
        }
        file = arrived.value_or(true) ? sizes_.erase(file) : std::next(file);
    }
    record.settle();
    end_ = sizes_.empty() ? std::nullopt : std::optional(now + length_);
    return changes;
}

void ArrivalWindow::open(Time since, Time now) {
    since_ = end_ ? std::min(since_, since) : since;
    if (!end_) end_ = now + length_;
}

std::optional<bool> ArrivalWindow::hasArrived(const Expected<FileStatus>& status, std::int64_t& size) {
    if (!status) return std::nullopt;
    // Only a regular file grows.
    if (size == kArrived || status->type != FileType::regular) return true;
    return std::exchange(size, status->size) == status->size;
}

}  // namespace vellomar
