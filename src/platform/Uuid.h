#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vellomar {

// A random identity (RFC 4122, version 4).
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    // A new one. Good for telling things apart, not for secrets. Any thread.
    [[nodiscard]] static Uuid random();

    // "XXXXXXXX-XXXX-4XXX-YXXX-XXXXXXXXXXXX" in upper case.
    [[nodiscard]] std::string text() const;

    bool operator==(const Uuid&) const = default;
};

}  // namespace vellomar
