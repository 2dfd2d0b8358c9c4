#pragma once

#include <optional>
#include <span>
#include <string>

namespace vellomar {

// What the program says about itself and then ends, when it is started with "--version", "--about" or "--help"; nothing
// for any other arguments. `arguments` are those behind the program's name. Any thread.
[[nodiscard]] std::optional<std::string> answerTo(std::span<const char* const> arguments);

}  // namespace vellomar
