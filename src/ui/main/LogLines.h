// How the activity log shows its lines. Pure; any thread.
#pragma once

#include <QColor>
#include <string_view>

namespace vellomar {

// The tabs of the log, in their order.
enum class LogFilter { all, errors, moved };

// Whether a line is shown under a tab.
[[nodiscard]] bool isShown(std::string_view line, LogFilter filter);

// The colours of a line: its text, and the bar at its left edge.
struct LogLineColours {
    QColor text;
    QColor bar;

    bool operator==(const LogLineColours&) const = default;
};

[[nodiscard]] LogLineColours coloursOf(std::string_view line);

}  // namespace vellomar
