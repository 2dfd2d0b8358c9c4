#include "ui/plan/ActionColours.h"

#include "ui/theme/HexColour.h"
#include "ui/theme/Theme.h"

namespace vellomar {

const ActionColours& actionColours(std::string_view action) {
    const auto& theme = Theme::shared();
    static const ActionColours kSkip = {theme.skipBadge, theme.skipText, hexColour("2A1515")};
    static const ActionColours kCopy = {theme.copyBadge, theme.success, hexColour("1A2E20")};
    static const ActionColours kMove = {theme.yellowTint, theme.yellow, hexColour("2A2600")};
    if (action.starts_with("SKIP")) return kSkip;
    return action.starts_with("COPY") ? kCopy : kMove;
}

}  // namespace vellomar
