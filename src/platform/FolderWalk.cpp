#include "platform/FolderWalk.h"

#include <iterator>
#include <utility>

#include "platform/Path.h"

namespace vellomar {
namespace {

std::stop_token stoppedFromTheStart() {
    std::stop_source source;
    source.request_stop();
    return source.get_token();
}

}  // namespace

std::string FolderWalk::Entry::path() const {
    return joinPath(folder, name);
}

FolderWalk::FolderWalk(FileSystem& fileSystem, std::string path, std::unique_ptr<Directory> directory,
                       std::shared_ptr<const Lineage> lineage, std::stop_token stop, const FolderWalkOptions& options)
    : fileSystem_(fileSystem),
      path_(std::move(path)),
      directory_(std::move(directory)),
      lineage_(std::move(lineage)),
      stop_(std::move(stop)),
      options_(options) {}

Expected<FolderWalk> FolderWalk::open(FileSystem& fileSystem, const std::string& folder, std::stop_token stop,
                                      const FolderWalkOptions& options) {
    auto directory = fileSystem.openDirectory(folder, true);
    if (!directory) return tl::unexpected(directory.error());
    const auto identity = (*directory)->identity();
    if (!identity) return tl::unexpected(identity.error());
    if (options.entered != nullptr && !options.entered->enter(*identity)) stop = stoppedFromTheStart();
    auto lineage = std::make_shared<const Lineage>(Lineage{*identity, nullptr});
    return FolderWalk(fileSystem, folder, std::move(*directory), std::move(lineage), std::move(stop), options);
}

std::optional<FolderWalk::Entry> FolderWalk::next() {
    do {
        while (!stop_.stop_requested()) {
            const auto entry = directory_->next();
            if (!entry || !*entry) break;
            if ((*entry)->name[0] == '.' && !options_.withHiddenNames) continue;
            const auto type = typeOf(**entry);
            if (!type) continue;
            if (*type == FileType::directory) found_.push_back({joinPath(path_, (*entry)->name), lineage_});
            return Entry{path_, (*entry)->name, *type};
        }
    } while (enterNextFolder());
    return std::nullopt;
}

Expected<FileStatus> FolderWalk::statusOf(const Entry& entry) {
    return directory_->statusOf(entry.name);
}

std::optional<FileType> FolderWalk::typeOf(const Directory::Entry& entry) {
    if (entry.type) return entry.type;
    const auto status = directory_->statusOf(entry.name);
    if (!status) return std::nullopt;
    return status->type;
}

bool FolderWalk::enterNextFolder() {
    std::move(found_.rbegin(), found_.rend(), std::back_inserter(pending_));
    found_.clear();
    while (!pending_.empty() && !stop_.stop_requested()) {
        auto folder = std::move(pending_.back());
        pending_.pop_back();
        if (enter(std::move(folder))) return true;
    }
    return false;
}

bool FolderWalk::enter(Pending folder) {
    auto directory = fileSystem_.openDirectory(folder.path, false);
    if (!directory) return false;
    const auto identity = (*directory)->identity();
    if (!identity || !mayEnter(*identity, folder.parent.get())) return false;
    path_ = std::move(folder.path);
    directory_ = std::move(*directory);
    lineage_ = std::make_shared<const Lineage>(Lineage{*identity, std::move(folder.parent)});
    return true;
}

bool FolderWalk::mayEnter(const FileIdentity& folder, const Lineage* parent) const {
    if (options_.entered != nullptr) return options_.entered->enter(folder);
    for (const auto* ancestor = parent; ancestor != nullptr; ancestor = ancestor->parent.get())
        if (ancestor->identity == folder) return false;
    return true;
}

}  // namespace vellomar
