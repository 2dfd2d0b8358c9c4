#pragma once

#include <span>
#include <string_view>

namespace vellomar {

// One option that is on or off, as the panel offers it. Texts are English, for translation in the context "OptionRows".
struct OptionRow {
    const char* section = "";
    const char* label = "";
    const char* subLabel = "";  // may be empty
    const char* tooltip = "";
    std::string_view key;  // in the settings
};

// The options of the panel's two tabs, in their order. Those of the last section of the second stand apart, since what
// kinds of file are included comes before them.
[[nodiscard]] std::span<const OptionRow> basicOptionRows();
[[nodiscard]] std::span<const OptionRow> advancedOptionRows();
[[nodiscard]] std::span<const OptionRow> fileOptionRows();

}  // namespace vellomar
