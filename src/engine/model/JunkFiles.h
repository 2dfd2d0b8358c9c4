#pragma once

#include <string_view>

namespace vellomar {

// Whether a file is of no interest to anybody: what file managers and photo programs leave behind, temporary files,
// and everything whose name begins with a dot. `lowercasedName` is the last path component in lower case,
// `lowercasedExtension` its extension without the dot.
[[nodiscard]] bool isJunkFile(std::string_view lowercasedName, std::string_view lowercasedExtension);

}  // namespace vellomar
