#include "ui/options/NamingStyles.h"

#include <QCoreApplication>
#include <algorithm>

namespace vellomar {
namespace {

QString words(const char* text) {
    return QCoreApplication::translate("NamingStyles", text);
}

}  // namespace

std::vector<NamingStyleText> namingStyleTexts() {
    return {{NamingStyle::original, words("Original"), QStringLiteral("IMG_4821.jpg"),
             words("Keeps original filenames. Folders: year/month/event.")},
            {NamingStyle::recommended, words("Recommended"), QStringLiteral("2025-06-14_143052_IMG_4821.jpg"),
             words("Adds date prefix to filename. Month folder is human-readable.")},
            {NamingStyle::cleanDate, words("Clean date"), QStringLiteral("2025-06-14_IMG_4821.jpg"),
             words("Renames to timestamp only. Month folder spelled out.")},
            {NamingStyle::archival, words("Archival"), QStringLiteral("20250614T143052_iPhone14Pro_IMG_4821.jpg"),
             words("Flat date folders, no event nesting. Best for Lightroom.")},
            {NamingStyle::custom, words("Custom"), QString(),
             words("Build your own format using tokens like {YYYY}, {Month}, {original}.")}};
}

QString namingStyleLabel(NamingStyle style) {
    const auto texts = namingStyleTexts();
    return std::ranges::find(texts, style, &NamingStyleText::style)->label;
}

}  // namespace vellomar
