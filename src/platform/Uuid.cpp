#include "platform/Uuid.h"

#include <bit>
#include <charconv>
#include <random>
#include <system_error>

#include <fmt/format.h>

namespace vellomar {
namespace {

// Before which bytes a hyphen stands.
bool beginsGroup(std::size_t i) {
    return i == 4 || i == 6 || i == 8 || i == 10;
}

std::mt19937_64 seededGenerator() {
    std::random_device device;
    std::seed_seq seed{device(), device(), device(), device(), device(), device(), device(), device()};
    return std::mt19937_64(seed);
}

}  // namespace

Uuid Uuid::random() {
    thread_local auto generator = seededGenerator();
    Uuid uuid{std::bit_cast<std::array<std::uint8_t, 16>>(std::array{generator(), generator()})};
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40);  // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80);  // the variant of the RFC
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (beginsGroup(i)) text += '-';
        text += fmt::format("{:02X}", bytes[i]);
    }
    return text;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    Uuid uuid;
    for (std::size_t i = 0; i < uuid.bytes.size(); ++i) {
        if (beginsGroup(i)) {
            if (!text.starts_with('-')) return std::nullopt;
            text.remove_prefix(1);
        }
        constexpr std::size_t kDigits = 2;
        const auto digits = text.substr(0, kDigits);
        constexpr int kHexadecimal = 16;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), uuid.bytes[i], kHexadecimal);
        if (error != std::errc() || end != digits.data() + kDigits) return std::nullopt;
        text.remove_prefix(kDigits);
    }
    if (!text.empty()) return std::nullopt;
    return uuid;
}

}  // namespace vellomar
