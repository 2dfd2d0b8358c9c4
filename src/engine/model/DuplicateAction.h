#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vellomar {

// What a real run does with a file at the destination whose bytes stand there already under another name.
enum class DuplicateAction {
    log,        // only tell
    moveToBin,  // move it to "_Duplicates" in the destination
    skip,       // delete it from the destination
};

inline constexpr std::array kDuplicateActions = {DuplicateAction::log, DuplicateAction::moveToBin,
                                                 DuplicateAction::skip};

// The words shown to the user, which are also what settings and presets keep.
[[nodiscard]] std::string_view rawText(DuplicateAction action);

// Nothing for a text that names no action; the reader then keeps its default.
[[nodiscard]] std::optional<DuplicateAction> duplicateActionFrom(std::string_view rawText);

}  // namespace vellomar
