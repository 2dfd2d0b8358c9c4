#include "platform/FileStatusFromKernel.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace vellomar {
namespace {

Instant instantFrom(const statx_timestamp& time) {
    return Instant(std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_nsec / 1000));
}

FileType fileTypeFrom(unsigned mode) {
    if (S_ISREG(mode)) return FileType::regular;
    if (S_ISDIR(mode)) return FileType::directory;
    if (S_ISLNK(mode)) return FileType::symlink;
    return FileType::other;
}

}  // namespace

const unsigned kStatusMask =
    STATX_TYPE | STATX_NLINK | STATX_SIZE | STATX_INO | STATX_MTIME | STATX_CTIME | STATX_BTIME;

FileStatus fileStatusFrom(const struct statx& kernelStatus) {
    constexpr int kDeviceMajorShift = 32;
    FileStatus status;
    status.type = fileTypeFrom(kernelStatus.stx_mode);
    status.size = static_cast<std::int64_t>(kernelStatus.stx_size);
    status.identity.device =
        (std::uint64_t{kernelStatus.stx_dev_major} << kDeviceMajorShift) | kernelStatus.stx_dev_minor;
    status.identity.inode = kernelStatus.stx_ino;
    status.links = kernelStatus.stx_nlink;
    status.modified = instantFrom(kernelStatus.stx_mtime);
    status.statusChanged = instantFrom(kernelStatus.stx_ctime);
    if ((kernelStatus.stx_mask & STATX_BTIME) != 0) status.created = instantFrom(kernelStatus.stx_btime);
    return status;
}

Expected<FileStatus> readStatus(int folder, const char* path, int flags) {
    struct statx kernelStatus {};
    if (::statx(folder, path, flags | AT_NO_AUTOMOUNT, kStatusMask, &kernelStatus) != 0) return systemFailure(errno);
    return fileStatusFrom(kernelStatus);
}

}  // namespace vellomar
