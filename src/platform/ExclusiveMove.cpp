#include "platform/ExclusiveMove.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

#include "platform/FileStatusFromKernel.h"

namespace vellomar {

Expected<void> moveByHardLink(const std::string& from, const std::string& to) {
    if (::link(from.c_str(), to.c_str()) != 0) return systemFailure(errno);
    if (::unlink(from.c_str()) == 0) return {};
    const auto failure = systemFailure(errno);
    ::unlink(to.c_str());
    return failure;
}

Expected<void> moveAfterLooking(const std::string& from, const std::string& to) {
    if (readStatus(AT_FDCWD, to.c_str(), AT_SYMLINK_NOFOLLOW)) return systemFailure(EEXIST);
    if (::rename(from.c_str(), to.c_str()) != 0) return systemFailure(errno);
    return {};
}

}  // namespace vellomar
