#include "platform/decoder/CborReader.h"

#include <bit>
#include <cmath>
#include <limits>

namespace vellomar {
namespace {

constexpr std::uint8_t kShortFraction = 0xfa;
constexpr std::uint8_t kLongFraction = 0xfb;

}  // namespace

bool CborReader::read(std::string& text) {
    const auto length = lengthOf(Type::bytes);
    if (!length || *length > rest_.size()) return false;
    text.assign(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(*length));
    rest_ = rest_.subspan(*length);
    return true;
}

bool CborReader::read(int& number) {
    const auto value = lengthOf(Type::number);
    if (!value || *value > std::size_t{std::numeric_limits<int>::max()}) return false;
    number = static_cast<int>(*value);
    return true;
}

bool CborReader::read(double& number) {
    if (rest_.empty()) return false;
    const auto form = rest_.front();
    if (form != kShortFraction && form != kLongFraction) return false;
    rest_ = rest_.subspan(1);
    const auto bits = numberOf(form == kShortFraction ? sizeof(float) : sizeof(double));
    if (!bits) return false;
    number = form == kShortFraction ? double{std::bit_cast<float>(static_cast<std::uint32_t>(*bits))}
                                    : std::bit_cast<double>(std::uint64_t{*bits});
    return std::isfinite(number);
}

// The length of a value of this type, which begins here. It stands in the lower five bits of the first byte, or in
// one, two or four bytes behind it, most significant first.
std::optional<std::size_t> CborReader::lengthOf(Type type) {
    constexpr unsigned kInOneByte = 24;
    constexpr unsigned kInFourBytes = 26;
    if (rest_.empty() || rest_.front() >> 5U != static_cast<unsigned>(type)) return std::nullopt;
    const auto form = rest_.front() & 0x1fU;
    rest_ = rest_.subspan(1);
    if (form < kInOneByte) return form;
    if (form > kInFourBytes) return std::nullopt;
    return numberOf(std::size_t{1} << (form - kInOneByte));
}

// The number in the next `width` bytes.
std::optional<std::size_t> CborReader::numberOf(std::size_t width) {
    if (rest_.size() < width) return std::nullopt;
    std::size_t number = 0;
    for (const auto byte : rest_.first(width))
        number = number << 8U | byte;
    rest_ = rest_.subspan(width);
    return number;
}

}  // namespace vellomar
