#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vellomar {

// How a file's destination path is shaped; BuildDestination tells each style's form. In the order of the style tabs.
enum class NamingStyle { original, recommended, cleanDate, archival, custom };

inline constexpr std::array kNamingStyles = {NamingStyle::original, NamingStyle::recommended, NamingStyle::cleanDate,
                                             NamingStyle::archival, NamingStyle::custom};

// The text that settings and presets keep.
[[nodiscard]] std::string_view rawText(NamingStyle style);

// Nothing for a text that names no style; the reader then keeps its default.
[[nodiscard]] std::optional<NamingStyle> namingStyleFrom(std::string_view rawText);

}  // namespace vellomar
