#pragma once

#include <cstddef>
#include <span>

namespace vellomar {

// The content of an open file as memory. Only what is looked at is read, so that a file of any size costs little.
// Where the disk cannot read a part, or the file was cut short meanwhile, looking there ends the process (SIGBUS).
class MappedFile {
public:
    // A file that is empty, no regular one, or cannot be mapped has no bytes.
    explicit MappedFile(int descriptor);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    [[nodiscard]] std::span<const std::byte> bytes() const { return {static_cast<const std::byte*>(start_), size_}; }

private:
    void* start_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace vellomar
