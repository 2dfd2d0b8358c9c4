#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace vellomar {

// Copies the content of `source` to a new file at `partial` through one buffer of 4 MiB: the way for slow shares,
// which pay per round trip. Nothing else of the source is carried over. A file that stands at `partial` is replaced,
// unless it is the source itself. The bytes are on the disk on return. On failure the partial file stays, for the
// caller to remove. Failures of the domain "Vellomar": 1, the source cannot be opened; 2, the partial file cannot be
// made. A failed read or write is told in the kernel's terms. Any thread.
[[nodiscard]] Expected<void> bufferedCopy(FileSystem& fileSystem, const std::string& source,
                                          const std::string& partial);

}  // namespace vellomar
