#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace vellomar {

// A path in the same folder at which nothing stands: `path` itself, else "a (1).jpg", "a (2).jpg" and so on beside
// "a.jpg". It looks at the disk alone and reserves nothing: whoever uses the name must still refuse to replace what
// appeared there meanwhile. Any thread.
[[nodiscard]] std::string uniqueDestination(FileSystem& fileSystem, const std::string& path);

}  // namespace vellomar
