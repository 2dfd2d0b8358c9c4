#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace vellomar {

// Memory that another process fills through an open file which has no name: it is written to like a file, and read here
// without a copy. It can grow but never shrink, so that no misdeed of the other process makes reading it fail. Gone
// when neither process has it any more. One thread at a time.
class SharedMemory {
public:
    // Empty. Fails where the kernel has no memory, or no such files, to give.
    [[nodiscard]] static Expected<SharedMemory> create();

    ~SharedMemory();
    SharedMemory(SharedMemory&& other) noexcept;
    SharedMemory& operator=(SharedMemory&&) = delete;
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    // What the other process gets.
    [[nodiscard]] int descriptor() const { return file_.get(); }

    // All that was written so far. Valid until the next call and as long as this object. The other process may still
    // change it, unless it is known to be done.
    [[nodiscard]] Expected<std::span<const std::byte>> content();

private:
    explicit SharedMemory(FileDescriptor file) : file_(std::move(file)) {}
    void unmap();

    FileDescriptor file_;
    void* start_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace vellomar
