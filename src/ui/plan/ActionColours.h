#pragma once

#include <QColor>
#include <string_view>

namespace vellomar {

// How the badge of an action looks.
struct ActionColours {
    QColor fill;
    QColor text;
    QColor edge;
};

// By how the action begins: "SKIP", "COPY", or anything else, which is a move. Any thread.
[[nodiscard]] const ActionColours& actionColours(std::string_view action);

}  // namespace vellomar
