#include "ui/main/LogLines.h"

#include "ui/theme/Theme.h"

namespace vellomar {

bool isShown(std::string_view line, LogFilter filter) {
    switch (filter) {
        case LogFilter::all: return true;
        case LogFilter::errors: return line.starts_with("✗") || line.starts_with("⚠");
        case LogFilter::moved: return line.starts_with("✓") || line.starts_with("[DRY]");
    }
    return true;
}

LogLineColours coloursOf(std::string_view line) {
    const auto& theme = Theme::shared();
    const auto contains = [&](std::string_view words) { return line.find(words) != std::string_view::npos; };
    if (line.starts_with("✗")) return {theme.logRed, theme.logRed};
    if (line.starts_with("✓") || line.starts_with("Copied") || line.starts_with("Moved"))
        return {theme.success, theme.success};
    if (line.starts_with("⚠") || contains("Dup")) return {theme.logAmber, theme.logAmber};
    if (contains("dup:")) return {theme.logAmber, theme.hairline};
    return {theme.text, theme.hairline};
}

}  // namespace vellomar
