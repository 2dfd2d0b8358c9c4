#pragma once

#include <QString>
#include <string_view>

namespace vellomar {

// Why a date from `source` was taken, and what it is worth, in a few sentences. Any thread.
[[nodiscard]] QString dateExplanation(std::string_view source);

}  // namespace vellomar
