#include "platform/LinuxFileSystem.h"

#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/ExclusiveMove.h"
#include "platform/FileDescriptor.h"
#include "platform/FileStatusFromKernel.h"
#include "platform/LinuxDirectory.h"
#include "platform/LinuxFiles.h"
#include "platform/VolumeLocality.h"
#include "platform/VolumeState.h"

namespace vellomar {
namespace {

Expected<FileDescriptor> openDescriptor(const std::string& path, int flags, mode_t mode = 0) {
    FileDescriptor descriptor(::open(path.c_str(), flags | O_CLOEXEC, mode));
    if (!descriptor.isOpen()) return systemFailure(errno);
    return descriptor;
}

int noFollowUnless(bool followSymlink) {
    return followSymlink ? 0 : O_NOFOLLOW;
}

int modeOf(Access access) {
    switch (access) {
        case Access::read: return R_OK;
        case Access::write: return W_OK;
        case Access::execute: return X_OK;
    }
    return F_OK;
}

// Whether the failed call asked for something that this file system has never heard of.
bool isUnsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

// FAT says EPERM, and shares say what they like.
bool hasNoHardLinks(const Error& error) {
    return isSystemError(error, EPERM) || isSystemError(error, EMLINK) || isUnsupported(error.code);
}

}  // namespace

Expected<std::unique_ptr<Directory>> LinuxFileSystem::openDirectory(const std::string& path, bool followSymlink) {
    auto folder = openDescriptor(path, O_RDONLY | O_DIRECTORY | noFollowUnless(followSymlink));
    if (!folder) return tl::unexpected(folder.error());
    return std::make_unique<LinuxDirectory>(std::move(*folder));
}

Expected<FileStatus> LinuxFileSystem::status(const std::string& path) {
    return readStatus(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW);
}

Expected<FileStatus> LinuxFileSystem::statusFollowingLinks(const std::string& path) {
    return readStatus(AT_FDCWD, path.c_str(), 0);
}

Expected<void> LinuxFileSystem::checkAccess(const std::string& path, Access access) {
    return successOrFailure(::faccessat(AT_FDCWD, path.c_str(), modeOf(access), AT_EACCESS));
}

Expected<std::unique_ptr<InputFile>> LinuxFileSystem::openForReading(const std::string& path, bool followSymlink) {
    // Without O_NONBLOCK a pipe that took the file's name would hold the run up for ever.
    auto file = openDescriptor(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | noFollowUnless(followSymlink));
    if (!file) return tl::unexpected(file.error());
    ::posix_fadvise(file->get(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return std::make_unique<LinuxInputFile>(std::move(*file));
}

Expected<std::unique_ptr<OutputFile>> LinuxFileSystem::createFile(const std::string& path, NewFileAccess access) {
    constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
    constexpr mode_t kEverybody = kOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    auto file = openDescriptor(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                               access == NewFileAccess::owner ? kOwner : kEverybody);
    if (!file) return tl::unexpected(file.error());
    return std::make_unique<LinuxOutputFile>(std::move(*file));
}

Expected<void> LinuxFileSystem::rename(const std::string& from, const std::string& to) {
    return successOrFailure(::rename(from.c_str(), to.c_str()));
}

Expected<void> LinuxFileSystem::renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
    if (!isUnsupported(errno)) return systemFailure(errno);
    auto moved = moveByHardLink(from, to);
    if (moved || !hasNoHardLinks(moved.error())) return moved;
    return moveAfterLooking(from, to);
}

Expected<void> LinuxFileSystem::removeFile(const std::string& path) {
    return successOrFailure(::unlink(path.c_str()));
}

Expected<void> LinuxFileSystem::removeDirectory(const std::string& path) {
    return successOrFailure(::rmdir(path.c_str()));
}

Expected<void> LinuxFileSystem::makeDirectory(const std::string& path) {
    constexpr mode_t kAllThatTheUmaskAllows = S_IRWXU | S_IRWXG | S_IRWXO;
    return successOrFailure(::mkdir(path.c_str(), kAllThatTheUmaskAllows));
}

Expected<void> LinuxFileSystem::syncDirectory(const std::string& path) {
    const auto folder = openDescriptor(path, O_RDONLY | O_DIRECTORY);
    if (!folder) return tl::unexpected(folder.error());
    if (::fsync(folder->get()) == 0) return {};
    // Some shares cannot sync a folder and say EINVAL: their entries are as durable as they ever get.
    if (isUnsupported(errno)) return {};
    return systemFailure(errno);
}

Expected<bool> LinuxFileSystem::volumeIsLocal(const std::string& path) {
    return readVolumeLocality(path);
}

Expected<void> LinuxFileSystem::setModificationDate(const std::string& path, Instant date) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
    const auto fraction = std::chrono::nanoseconds(date - seconds);
    const timespec modified{seconds.time_since_epoch().count(), fraction.count()};
    const timespec unchanged{0, UTIME_OMIT};
    const std::array times = {unchanged, modified};
    return successOrFailure(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0));
}

Expected<bool> LinuxFileSystem::volumeIsReadOnly(const std::string& path) {
    return readVolume(path).map(&isReadOnly);
}

Expected<std::int64_t> LinuxFileSystem::availableBytes(const std::string& path) {
    return readVolume(path).and_then(&availableBytesOf);
}

}  // namespace vellomar
