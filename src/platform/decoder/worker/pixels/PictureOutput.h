#pragma once

#include <cstddef>
#include <span>

namespace vellomar {

// Writes all of `bytes` to the open file `output`. False if not all of it can be written.
[[nodiscard]] bool writeAll(int output, std::span<const std::byte> bytes);

}  // namespace vellomar
