#include "platform/SharedMemory.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace vellomar {

Expected<SharedMemory> SharedMemory::create() {
    FileDescriptor file(::memfd_create("vellomar", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file.isOpen()) return systemFailure(errno);
    if (::fcntl(file.get(), F_ADD_SEALS, F_SEAL_SHRINK) != 0) return systemFailure(errno);
    return SharedMemory(std::move(file));
}

SharedMemory::~SharedMemory() {
    unmap();
}

SharedMemory::SharedMemory(SharedMemory&& other) noexcept
    : file_(std::move(other.file_)),
      start_(std::exchange(other.start_, nullptr)),
      size_(std::exchange(other.size_, 0)) {}

Expected<std::span<const std::byte>> SharedMemory::content() {
    unmap();
    struct stat status {};
    if (::fstat(file_.get(), &status) != 0) return systemFailure(errno);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0) return std::span<const std::byte>();
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file_.get(), 0);
    if (start == MAP_FAILED) return systemFailure(errno);
    start_ = start;
    size_ = size;
    return std::span(static_cast<const std::byte*>(start), size);
}

void SharedMemory::unmap() {
    if (start_ != nullptr) ::munmap(start_, size_);
    start_ = nullptr;
    size_ = 0;
}

}  // namespace vellomar
