#include "support/VolumeOfItsOwn.h"

#include <cerrno>
#include <thread>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include "support/TemporaryFolder.h"

namespace vellomar::testing {
namespace {

int mountVolume(const std::string& folder, std::size_t size) {
    const auto options = "size=" + std::to_string(size);
    return ::mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0 ? 0 : errno;
}

// Mounts at `folder` for this thread alone. 0 or an errno.
int mountForThisThread(const std::string& folder, std::size_t size) {
    if (::unshare(CLONE_NEWNS) != 0) return errno;
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return errno;
    return mountVolume(folder, size);
}

}  // namespace

void VolumeOfItsOwn::makeReadOnly() const {
    ASSERT_EQ(::mount(nullptr, path_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0) << errno;
}

void VolumeOfItsOwn::unmount() const {
    // Who looks around on it at this moment must not keep it.
    ASSERT_EQ(::umount2(path_.c_str(), MNT_DETACH), 0) << errno;
}

void VolumeOfItsOwn::mountAnew() const {
    ASSERT_EQ(mountVolume(path_, size_), 0);
}

void VolumeOfItsOwn::bind(const std::string& folder) const {
    ASSERT_EQ(::mount(folder.c_str(), path_.c_str(), nullptr, MS_BIND, nullptr), 0) << errno;
}

int withVolumeOfItsOwn(std::size_t size, const std::function<void(const VolumeOfItsOwn&)>& body) {
    const TemporaryFolder folder;
    int error = 0;
    std::jthread([&] {
        error = mountForThisThread(folder.path(), size);
        if (error == 0) body(VolumeOfItsOwn(folder.path(), size));
    }).join();
    return error;
}

}  // namespace vellomar::testing
