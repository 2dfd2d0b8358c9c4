#include "platform/Uuid.h"

#include <bit>
#include <random>

#include <fmt/format.h>

namespace vellomar {
namespace {

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
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += fmt::format("{:02X}", bytes[i]);
    }
    return text;
}

}  // namespace vellomar
