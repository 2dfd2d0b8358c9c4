#pragma once

#include <charconv>
#include <string_view>

namespace vellomar {

// The number that a text of ASCII digits writes in decimal; it must fit. Pure; any thread.
template <typename Number = int>
[[nodiscard]] Number numberOf(std::string_view digits) {
    Number value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

}  // namespace vellomar
