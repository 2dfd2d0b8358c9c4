// Numbers and paths as the screens show them. Pure; any thread.
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

namespace vellomar {

// "1.5 GB", below a gigabyte "999 MB"; units of a thousand.
[[nodiscard]] QString sizeText(std::int64_t bytes);

// "Zero KB", "1 byte", "999 bytes", "2 KB", "1.5 MB", "1.25 GB": to the nearest, in the largest unit that leaves at
// least one, with no zeros at the end of a fraction. Units of a thousand, up to exabytes.
[[nodiscard]] QString byteCountText(std::int64_t bytes);

// "45%" of a fraction from 0 to 1.
[[nodiscard]] QString percentageText(double fraction);

// A name or a path as it can be shown: a byte that is not UTF-8 becomes a replacement character, and what would break a
// line or move the cursor the picture of itself. Never to be turned back into a path.
[[nodiscard]] QString displayText(std::string_view bytes);

// The last component of a folder's path, as above; the whole path where it has none.
[[nodiscard]] QString folderName(std::string_view path);

// A path for a narrow place: up to three components as they stand, of a longer one the last three behind an ellipsis.
[[nodiscard]] QString shortPath(std::string_view path);

}  // namespace vellomar
