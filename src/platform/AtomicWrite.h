#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace vellomar {

// Puts `content` at `path`, replacing a file there: at every moment, even through a power cut, either the old or the
// whole new content stands under that name. Works through a hidden temporary file beside it, which is gone on return.
// The new file may be read as the user's umask allows. Any thread, but two writers of one path at a time may both fail.
[[nodiscard]] Expected<void> writeAtomically(FileSystem& fileSystem, const std::string& path, std::string_view content);

}  // namespace vellomar
