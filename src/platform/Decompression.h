#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellomar {

// What `bytes`, a zlib stream, was made from, which must be `size` bytes long. Nothing when it is of another length,
// when the stream is broken or cut off, or when something follows it. Takes `size` bytes of memory whatever the stream
// says, so the caller must have found that reasonable. Any thread.
[[nodiscard]] std::optional<std::string> decompressed(std::string_view bytes, std::size_t size);

}  // namespace vellomar
