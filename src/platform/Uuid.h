#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellomar {

// A random identity (RFC 4122, version 4).
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    // A new one. Good for telling things apart, not for secrets. Any thread.
    [[nodiscard]] static Uuid random();

    // Thirty-two hexadecimal digits in upper case, in groups of 8-4-4-4-12.
    [[nodiscard]] std::string text() const;

    // The reverse; digits may be of either case. Nothing for any other text.
    [[nodiscard]] static std::optional<Uuid> fromText(std::string_view text);

    bool operator==(const Uuid&) const = default;
};

}  // namespace vellomar
