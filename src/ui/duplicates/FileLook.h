#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Instant.h"

namespace vellomar {

// A file as it was found on the disk.
struct FoundFile {
    std::string path;
    std::int64_t size = 0;  // bytes
    Instant modified;
};

// The file at the first of `places` at which one stands; nothing where none does. An empty place is passed over. Asks
// the disk, so it may take as long as that does; any thread.
[[nodiscard]] std::optional<FoundFile> firstFileAt(FileSystem& fileSystem, const std::vector<std::string>& places);

}  // namespace vellomar
