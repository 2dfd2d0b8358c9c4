#include "ui/theme/Theme.h"

#include <QFontDatabase>

#include "ui/theme/HexColour.h"

namespace vellomar {

const Theme& Theme::shared() {
    static const Theme kTheme;
    return kTheme;
}

QString Theme::fontFamily() {
    auto packaged = QStringLiteral("JetBrains Mono");
    if (QFontDatabase::hasFamily(packaged)) return packaged;
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

QColor Theme::hex(const char* digits) {
    return hexColour(digits);
}

}  // namespace vellomar
