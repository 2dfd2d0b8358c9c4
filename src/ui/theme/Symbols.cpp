#include "ui/theme/Symbols.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vellomar {
namespace {

struct SymbolIcon {
    std::u16string_view symbol;
    std::u16string_view icon;  // name of an SVG file; the build takes the files to compile in from this table
};

// clang-format off
constexpr std::array kSymbolIcons = {
    SymbolIcon{u"arrow.down.circle.fill", u"arrow-down-circle-fill"},
    SymbolIcon{u"arrow.down.doc", u"file-earmark-arrow-down"},
    SymbolIcon{u"arrow.right", u"arrow-right"},
    SymbolIcon{u"arrow.right.square", u"arrow-right-square"},
    SymbolIcon{u"arrow.right.square.fill", u"arrow-right-square-fill"},
    SymbolIcon{u"arrow.triangle.2.circlepath", u"arrow-repeat"},
    SymbolIcon{u"arrow.triangle.branch", u"signpost-split"},
    SymbolIcon{u"arrow.up.forward.app", u"box-arrow-up-right"},
    SymbolIcon{u"arrow.up.right.square", u"box-arrow-up-right"},
    SymbolIcon{u"arrow.uturn.backward", u"arrow-counterclockwise"},
    SymbolIcon{u"calendar", u"calendar3"},
    SymbolIcon{u"calendar.badge.clock", u"calendar-check"},
    SymbolIcon{u"calendar.badge.exclamationmark", u"calendar-x"},
    SymbolIcon{u"camera", u"camera"},
    SymbolIcon{u"chart.bar", u"bar-chart"},
    SymbolIcon{u"chart.bar.fill", u"bar-chart-fill"},
    SymbolIcon{u"checkmark", u"check-lg"},
    SymbolIcon{u"checkmark.circle.fill", u"check-circle-fill"},
    SymbolIcon{u"checkmark.shield", u"shield-check"},
    SymbolIcon{u"checkmark.shield.fill", u"shield-fill-check"},
    SymbolIcon{u"clock", u"clock"},
    SymbolIcon{u"clock.badge.checkmark", u"clock-history"},
    SymbolIcon{u"doc", u"file-earmark"},
    SymbolIcon{u"doc.badge.gearshape", u"file-earmark-code"},
    SymbolIcon{u"doc.on.doc", u"files"},
    SymbolIcon{u"doc.on.doc.fill", u"stickies-fill"},
    SymbolIcon{u"doc.text", u"file-earmark-text"},
    SymbolIcon{u"doc.text.magnifyingglass", u"file-earmark-text"},
    SymbolIcon{u"exclamationmark.shield.fill", u"shield-fill-exclamation"},
    SymbolIcon{u"exclamationmark.triangle", u"exclamation-triangle"},
    SymbolIcon{u"exclamationmark.triangle.fill", u"exclamation-triangle-fill"},
    SymbolIcon{u"externaldrive.badge.exclamationmark", u"hdd-fill"},
    SymbolIcon{u"externaldrive.fill", u"hdd-fill"},
    SymbolIcon{u"eye", u"eye"},
    SymbolIcon{u"eye.fill", u"eye-fill"},
    SymbolIcon{u"folder", u"folder"},
    SymbolIcon{u"folder.badge.plus", u"folder-plus"},
    SymbolIcon{u"folder.fill", u"folder-fill"},
    SymbolIcon{u"gauge.high", u"speedometer"},
    SymbolIcon{u"gearshape", u"gear"},
    SymbolIcon{u"hand.raised.slash", u"eye-slash"},
    SymbolIcon{u"info.circle", u"info-circle"},
    SymbolIcon{u"lightbulb", u"lightbulb"},
    SymbolIcon{u"line.3.horizontal.decrease.circle", u"filter-circle"},
    SymbolIcon{u"line.3.horizontal.decrease.circle.fill", u"filter-circle-fill"},
    SymbolIcon{u"link", u"link-45deg"},
    SymbolIcon{u"location", u"geo-alt"},
    SymbolIcon{u"location.fill", u"geo-alt-fill"},
    SymbolIcon{u"location.slash", u"geo"},
    SymbolIcon{u"magnifyingglass", u"search"},
    SymbolIcon{u"map", u"map"},
    SymbolIcon{u"number", u"hash"},
    SymbolIcon{u"pencil", u"pencil"},
    SymbolIcon{u"person.2", u"people"},
    SymbolIcon{u"photo", u"image"},
    SymbolIcon{u"photo.badge.arrow.down", u"file-earmark-image"},
    SymbolIcon{u"photo.on.rectangle", u"images"},
    SymbolIcon{u"photo.on.rectangle.angled", u"images"},
    SymbolIcon{u"photo.stack", u"stack"},
    SymbolIcon{u"play.fill", u"play-fill"},
    SymbolIcon{u"plus.circle.fill", u"plus-circle-fill"},
    SymbolIcon{u"questionmark.circle", u"question-circle"},
    SymbolIcon{u"questionmark.circle.fill", u"question-circle-fill"},
    SymbolIcon{u"rectangle.3.group", u"grid-1x2"},
    SymbolIcon{u"ruler", u"rulers"},
    SymbolIcon{u"sdcard", u"sd-card"},
    SymbolIcon{u"sdcard.fill", u"sd-card-fill"},
    SymbolIcon{u"shield.checkered", u"shield-check"},
    SymbolIcon{u"sparkles", u"stars"},
    SymbolIcon{u"square.and.arrow.down", u"box-arrow-in-down"},
    SymbolIcon{u"stop.fill", u"stop-fill"},
    SymbolIcon{u"textformat", u"fonts"},
    SymbolIcon{u"wand.and.stars", u"magic"},
    SymbolIcon{u"wrench.and.screwdriver", u"tools"},
    SymbolIcon{u"xmark", u"x-lg"},
    SymbolIcon{u"xmark.circle.fill", u"x-circle-fill"},
    SymbolIcon{u"xmark.shield.fill", u"shield-fill-x"},
};
// clang-format on

static_assert(std::ranges::is_sorted(kSymbolIcons, {}, &SymbolIcon::symbol));

QString text(std::u16string_view characters) {
    return QStringView(characters.data(), static_cast<qsizetype>(characters.size())).toString();
}

}  // namespace

QString iconOf(QStringView symbol) {
    const std::u16string_view wanted(symbol.utf16(), static_cast<std::size_t>(symbol.size()));
    const auto* const found = std::ranges::lower_bound(kSymbolIcons, wanted, {}, &SymbolIcon::symbol);
    if (found == kSymbolIcons.end() || found->symbol != wanted) return {};
    return QStringLiteral(":/icons/") + text(found->icon) + QStringLiteral(".svg");
}

QStringList knownSymbols() {
    QStringList symbols;
    for (const SymbolIcon& row : kSymbolIcons)
        symbols += text(row.symbol);
    return symbols;
}

}  // namespace vellomar
