#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vellomar::fuzz {

// Bytes that nobody chose.
using Input = std::span<const std::uint8_t>;

[[nodiscard]] inline std::string_view textOf(Input input) {
    return {reinterpret_cast<const char*>(input.data()), input.size()};
}

// How long the useful inputs of a target are.
enum class InputKind { text, media };

// One operation that takes bytes from outside, and what must hold whatever they are.
struct Target {
    std::string_view name;  // of its program, and of its folder of seeds
    InputKind kind = InputKind::text;

    // Once for the process, before the first input.
    void (*prepare)() = nullptr;

    // Gives `input` to the operation. Throws when a property does not hold; see Require.h.
    void (*run)(Input input) = nullptr;
};

}  // namespace vellomar::fuzz
