#include "platform/LinuxDirectory.h"

#include <cerrno>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>

#include "platform/FileStatusFromKernel.h"

namespace vellomar {
namespace {

std::optional<FileType> fileTypeFrom(unsigned char kind) {
    switch (kind) {
        case DT_UNKNOWN: return std::nullopt;
        case DT_REG: return FileType::regular;
        case DT_DIR: return FileType::directory;
        case DT_LNK: return FileType::symlink;
        default: return FileType::other;
    }
}

bool isSelfOrParent(const char* name) {
    const std::string_view text = name;
    return text == "." || text == "..";
}

}  // namespace

Expected<std::optional<Directory::Entry>> LinuxDirectory::next() {
    while (true) {
        if (position_ == filled_) {
            const auto more = refill();
            if (!more) return tl::unexpected(more.error());
            if (!*more) return std::nullopt;
        }
        const auto* entry = reinterpret_cast<const dirent64*>(buffer_.data() + position_);
        position_ += entry->d_reclen;
        if (!isSelfOrParent(entry->d_name)) return Entry{entry->d_name, fileTypeFrom(entry->d_type)};
    }
}

Expected<bool> LinuxDirectory::refill() {
    const auto count = ::getdents64(folder_.get(), buffer_.data(), buffer_.size());
    if (count < 0) return systemFailure(errno);
    position_ = 0;
    filled_ = static_cast<std::size_t>(count);
    return filled_ > 0;
}

Expected<FileStatus> LinuxDirectory::statusOf(const char* name) {
    return readStatus(folder_.get(), name, AT_SYMLINK_NOFOLLOW);
}

Expected<FileIdentity> LinuxDirectory::identity() {
    return readStatus(folder_.get(), "", AT_EMPTY_PATH).map([](const FileStatus& status) { return status.identity; });
}

}  // namespace vellomar
