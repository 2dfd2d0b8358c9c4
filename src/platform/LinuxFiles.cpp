#include "platform/LinuxFiles.h"

#include <array>
#include <cerrno>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/FileStatusFromKernel.h"
#include "platform/Uninterrupted.h"

namespace vellomar {
namespace {

// Linux moves no more than this in one call anyway.
constexpr std::size_t kMostBytesPerCall = 0x7ffff000;

Expected<std::size_t> countOrFailure(ssize_t count) {
    if (count < 0) return systemFailure(errno);
    return static_cast<std::size_t>(count);
}

// What users and file managers keep with a file. Others belong to the system, which gives every file its own.
bool isUsersAttribute(std::string_view name) {
    return name.starts_with("user.") || name == "system.posix_acl_access";
}

// The names of a file's extended attributes, each ended by a NUL.
std::vector<char> attributeNames(int file) {
    const auto size = ::flistxattr(file, nullptr, 0);
    if (size <= 0) return {};
    std::vector<char> names(static_cast<std::size_t>(size));
    const auto filled = ::flistxattr(file, names.data(), names.size());
    names.resize(filled < 0 ? 0 : static_cast<std::size_t>(filled));
    return names;
}

// An attribute that the other volume cannot hold, or that this user may not set, is left behind.
void copyAttribute(int source, int target, const char* name) {
    const auto size = ::fgetxattr(source, name, nullptr, 0);
    if (size < 0) return;
    std::vector<char> value(static_cast<std::size_t>(size));
    const auto filled = ::fgetxattr(source, name, value.data(), value.size());
    if (filled >= 0) ::fsetxattr(target, name, value.data(), static_cast<std::size_t>(filled), 0);
}

void copyAttributes(int source, int target) {
    const auto names = attributeNames(source);
    for (std::size_t start = 0; start < names.size();) {
        const std::string_view name(names.data() + start);
        if (isUsersAttribute(name)) copyAttribute(source, target, name.data());
        start += name.size() + 1;
    }
}

}  // namespace

Expected<std::size_t> LinuxInputFile::read(std::span<std::byte> buffer) {
    return countOrFailure(uninterrupted([&] { return ::read(file_.get(), buffer.data(), buffer.size()); }));
}

Expected<FileStatus> LinuxInputFile::status() {
    return readStatus(file_.get(), "", AT_EMPTY_PATH);
}

Expected<std::size_t> LinuxOutputFile::write(std::span<const std::byte> data) {
    return countOrFailure(uninterrupted([&] { return ::write(file_.get(), data.data(), data.size()); }));
}

Expected<void> LinuxOutputFile::cloneFrom(InputFile& source) {
    return successOrFailure(::ioctl(file_.get(), FICLONE, source.descriptor()));
}

Expected<std::size_t> LinuxOutputFile::copyFrom(InputFile& source, std::size_t maxBytes) {
    const auto bytes = std::min(maxBytes, kMostBytesPerCall);
    return countOrFailure(
        uninterrupted([&] { return ::copy_file_range(source.descriptor(), nullptr, file_.get(), nullptr, bytes, 0); }));
}

Expected<void> LinuxOutputFile::takeAttributesOf(InputFile& source) {
    struct stat status {};
    if (::fstat(source.descriptor(), &status) != 0) return systemFailure(errno);
    copyAttributes(source.descriptor(), file_.get());
    // The privileges of a set-user-ID file are its owner's, and the copy may have another. A volume without modes
    // (FAT on a card) refuses, which costs nothing.
    constexpr mode_t kPermissionBits = S_IRWXU | S_IRWXG | S_IRWXO;
    ::fchmod(file_.get(), status.st_mode & kPermissionBits);
    const std::array times = {status.st_atim, status.st_mtim};
    return successOrFailure(::futimens(file_.get(), times.data()));
}

Expected<void> LinuxOutputFile::sync() {
    return successOrFailure(::fdatasync(file_.get()));
}

Expected<void> LinuxOutputFile::dropCache() {
    if (const int error = ::posix_fadvise(file_.get(), 0, 0, POSIX_FADV_DONTNEED); error != 0)
        return systemFailure(error);
    return {};
}

}  // namespace vellomar
