#pragma once

#include <QColor>
#include <string_view>

namespace vellomar {

// The sRGB colour that `text` spells: six hexadecimal digits, red first, for an opaque one, or eight with the alpha in
// front. Whatever is no letter and no digit does not count ("#F5-C5 18"). What then is no hexadecimal number is black.
[[nodiscard]] QColor hexColour(std::string_view text);

}  // namespace vellomar
