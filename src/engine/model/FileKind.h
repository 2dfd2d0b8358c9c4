#pragma once

#include <string_view>

namespace vellomar {

enum class FileKind { image, video, other };

// "image", "video" or "other".
[[nodiscard]] std::string_view nameOf(FileKind kind);

// What a file is, by its extension alone and in any case of letters. A file without an extension is `other`.
[[nodiscard]] FileKind fileKindOf(std::string_view path);

// As above, for an extension that is in lower case already, without its dot.
[[nodiscard]] FileKind fileKindOfExtension(std::string_view lowercasedExtension);

// Extensions by which pairs are found, in lower case. The RAW ones are fewer than those that count as images.
[[nodiscard]] bool isRawExtension(std::string_view lowercasedExtension);
[[nodiscard]] bool isJpegExtension(std::string_view lowercasedExtension);
[[nodiscard]] bool isSidecarExtension(std::string_view lowercasedExtension);

}  // namespace vellomar
