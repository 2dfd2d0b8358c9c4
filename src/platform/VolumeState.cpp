#include "platform/VolumeState.h"

#include <cerrno>

#include <sys/statvfs.h>

namespace vellomar {

Expected<VolumeState> readVolume(const std::string& path) {
    struct statvfs volume {};
    if (::statvfs(path.c_str(), &volume) != 0) return systemFailure(errno);
    return VolumeState{volume.f_flag, volume.f_frsize, volume.f_bavail};
}

bool isReadOnly(const VolumeState& volume) {
    return (volume.flags & ST_RDONLY) != 0;
}

Expected<std::int64_t> availableBytesOf(const VolumeState& volume) {
    std::int64_t bytes = 0;
    if (__builtin_mul_overflow(volume.fragmentSize, volume.availableBlocks, &bytes)) return systemFailure(EOVERFLOW);
    return bytes;
}

}  // namespace vellomar
