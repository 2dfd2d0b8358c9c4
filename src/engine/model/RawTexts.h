// Shared by the enumerations that settings keep as text.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace vellomar {

template <typename Enum, std::size_t count>
using RawTexts = std::array<std::pair<Enum, std::string_view>, count>;

template <typename Enum, std::size_t count>
[[nodiscard]] constexpr std::string_view rawTextIn(const RawTexts<Enum, count>& table, Enum value) {
    return std::ranges::find(table, value, &std::pair<Enum, std::string_view>::first)->second;
}

template <typename Enum, std::size_t count>
[[nodiscard]] constexpr std::optional<Enum> valueIn(const RawTexts<Enum, count>& table, std::string_view text) {
    const auto row = std::ranges::find(table, text, &std::pair<Enum, std::string_view>::second);
    if (row == table.end()) return std::nullopt;
    return row->first;
}

}  // namespace vellomar
