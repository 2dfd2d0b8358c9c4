// Paths as the kernel has them: bytes, split by "/". Nothing here touches the disk or believes in an encoding.
#pragma once

#include <string>
#include <string_view>

namespace vellomar {

// The part behind the last "/"; the whole path when it has none. Trailing slashes are the caller's to remove.
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

// The part before the last "/"; "/" for something straight below the root; empty when the path has no "/".
[[nodiscard]] std::string_view parentPath(std::string_view path);

// What stands behind the last dot of the last component, without the dot. Empty when there is no dot, when nothing
// stands behind it ("a."), or when it is the name's first character (".hidden").
[[nodiscard]] std::string_view pathExtension(std::string_view path);

// The last component without its extension and that extension's dot: "a.b.jpg" gives "a.b", "a." gives "a.".
[[nodiscard]] std::string_view pathStem(std::string_view path);

// `name` below `folder`, with one slash between.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name);

// The path without slashes at its end; "/" stays.
[[nodiscard]] std::string withoutTrailingSlashes(std::string_view path);

// Whether `path` is `folder` or lies below it, going by the text alone.
[[nodiscard]] bool isWithin(std::string_view path, std::string_view folder);

}  // namespace vellomar
