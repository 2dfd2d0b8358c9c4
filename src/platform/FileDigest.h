#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace vellomar {

// Why a file has no digest.
enum class DigestFailure {
    cannotOpen,  // nothing is known of its content
    cannotRead,  // it is there, but not all of its bytes can be had
};

// SHA-256 of a file's content: 64 lower-case hexadecimal characters. A file that cannot be read to its end has none:
// the digest of a part never passes for that of the whole. A symlink is followed. Reads in pieces through one buffer of
// 256 KiB, whatever the file's size. Any thread.
[[nodiscard]] tl::expected<std::string, DigestFailure> digestOfFile(FileSystem& fileSystem, const std::string& path);

// As above, for callers who do not care why there is none.
[[nodiscard]] std::optional<std::string> sha256OfFile(FileSystem& fileSystem, const std::string& path);

}  // namespace vellomar
