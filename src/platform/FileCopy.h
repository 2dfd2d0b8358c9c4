#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace vellomar {

// Copies the file at `source` to `target`, where nothing may stand, with its mode, times and attributes. The fastest
// way that the volumes have: shared blocks, else a copy inside the kernel, else through memory. The bytes are on the
// disk on return, and no longer in the page cache. A symlink at `source` is not followed. On failure what was made of
// `target` stays, for the caller to remove. Any thread.
[[nodiscard]] Expected<void> copyFile(FileSystem& fileSystem, const std::string& source, const std::string& target);

// Copies what is left of `source` through a buffer of `bufferSize` bytes.
[[nodiscard]] Expected<void> copyThroughMemory(InputFile& source, OutputFile& target, std::size_t bufferSize);

// Brings what was written to the disk and drops it from the page cache, so that whoever verifies the file reads what
// the disk holds.
[[nodiscard]] Expected<void> settle(OutputFile& target);

// Writes all of `data`.
[[nodiscard]] Expected<void> writeAll(OutputFile& target, std::span<const std::byte> data);

}  // namespace vellomar
