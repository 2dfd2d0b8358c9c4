#include "ui/theme/HexColour.h"

#include <charconv>
#include <cstdint>
#include <string>

namespace vellomar {
namespace {

bool isAlphanumeric(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

QColor hexColour(std::string_view text) {
    std::string digits;
    for (const char c : text)
        if (isAlphanumeric(c)) digits += c;
    constexpr std::size_t kDigitsWithoutAlpha = 6;
    if (digits.size() == kDigitsWithoutAlpha) digits.insert(0, "FF");
    constexpr int kHexadecimal = 16;
    std::uint32_t argb = 0;
    const auto* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, argb, kHexadecimal);
    if (read.ec != std::errc() || read.ptr != end) return Qt::black;
    return QColor::fromRgba(argb);
}

}  // namespace vellomar
