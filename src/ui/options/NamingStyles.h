#pragma once

#include <QString>
#include <vector>

#include "engine/model/NamingStyle.h"

namespace vellomar {

// How a naming style is called and explained.
struct NamingStyleText {
    NamingStyle style = NamingStyle::recommended;
    QString label;
    QString example;  // a file's new name; empty for the custom style, whose example depends on its format
    QString description;
};

// All styles, in the order in which they are offered. Any thread.
[[nodiscard]] std::vector<NamingStyleText> namingStyleTexts();

[[nodiscard]] QString namingStyleLabel(NamingStyle style);

}  // namespace vellomar
