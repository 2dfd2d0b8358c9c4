#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vellomar {

// Reads the few kinds of values that a decoder's answer in CBOR is made of: arrays, byte texts, numbers and nulls, one
// after the other. The library's own reader follows arrays and texts in pieces to any depth of the stack and throws at
// some lengths, but a file may have taken over the decoder, and then the bytes are the file's. Each function is false
// when something else stands there; what it should have read is then of no use.
class CborReader {
public:
    // The bytes must outlive it.
    explicit CborReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

    [[nodiscard]] bool beginsArrayOf(std::size_t count) { return lengthOf(Type::array) == count; }

    // How many elements the array has that begins here. Each takes a byte at least, so that no honest count is larger
    // than what is left.
    [[nodiscard]] std::optional<std::size_t> lengthOfArray() { return lengthOf(Type::array); }

    [[nodiscard]] bool read(std::string& text);

    // From 0 up.
    [[nodiscard]] bool read(int& number);

    // A finite one.
    [[nodiscard]] bool read(double& number);

    template <typename Value>
    [[nodiscard]] bool read(std::optional<Value>& value) {
        if (rest_.empty()) return false;
        if (rest_.front() != kNull) return read(value.emplace());
        rest_ = rest_.subspan(1);
        return true;
    }

private:
    // What stands in the upper three bits of a value's first byte.
    enum class Type : std::uint8_t { number = 0, bytes = 2, array = 4 };

    static constexpr std::uint8_t kNull = 0xf6;

    std::optional<std::size_t> lengthOf(Type type);
    std::optional<std::size_t> numberOf(std::size_t width);

    std::span<const std::uint8_t> rest_;
};

}  // namespace vellomar
