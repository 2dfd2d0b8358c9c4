#pragma once

#include <string>

#include "platform/Error.h"

namespace vellomar {

// Moves a file to a name at which nothing may stand, on file systems whose rename cannot refuse to replace. Both fail
// with EEXIST if something stands at `to`. For LinuxFileSystem; any thread.

// By a second name for the file, which the kernel refuses to put over an existing one: one atomic decision. Where the
// old name then cannot be removed the new one is taken back. Fails where there are no hard links.
[[nodiscard]] Expected<void> moveByHardLink(const std::string& from, const std::string& to);

// The last resort, for FAT and some shares: a name that is taken between the look and the rename is replaced.
[[nodiscard]] Expected<void> moveAfterLooking(const std::string& from, const std::string& to);

}  // namespace vellomar
