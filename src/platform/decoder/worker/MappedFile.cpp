#include "platform/decoder/worker/MappedFile.h"

#include <sys/mman.h>
#include <sys/stat.h>

namespace vellomar {

MappedFile::MappedFile(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size <= 0) return;
    const auto size = static_cast<std::size_t>(status.st_size);
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (start == MAP_FAILED) return;
    start_ = start;
    size_ = size;
}

MappedFile::~MappedFile() {
    if (start_ != nullptr) ::munmap(start_, size_);
}

}  // namespace vellomar
