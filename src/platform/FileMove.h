#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace vellomar {

// What a name ends in while its file is still being written.
inline constexpr std::string_view kPartialSuffix = ".__partial";

// Moves one file to a name at which nothing may stand. A symlink is moved itself, not what it leads to.
//
// Within a volume this is one atomic step. Between two volumes the file is copied to a work file ("NAME.__partial",
// where a stale one is removed first) beside the target, gets its name when its bytes are on the disk, and the original
// goes when the name is there too. The copy has the original's mode, times and attributes.
//
// Fails with EEXIST if anything stands at `to`, with EISDIR for a folder, and with EXDEV for what is neither file nor
// folder and would have to change volumes. On failure the file is where it was, and nothing of it at `to`; only where
// an original has become another file during its move, or can no longer be looked at, do both stay. Any thread.
[[nodiscard]] Expected<void> moveFile(FileSystem& fileSystem, const std::string& from, const std::string& to);

// The same to `wanted` or, if anything stands there, to the first free numbered name beside it (see
// uniqueDestination()). Returns where the file is now. Another name is tried when somebody takes the chosen one
// meanwhile, up to 100 times.
[[nodiscard]] Expected<std::string> moveToFreeName(FileSystem& fileSystem, const std::string& from,
                                                   const std::string& wanted);

}  // namespace vellomar
