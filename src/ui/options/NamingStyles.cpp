#include "ui/options/NamingStyles.h"

#include <QCoreApplication>
#include <algorithm>

namespace vellomar {
namespace {

QString namingWords(const char* text) {
    return QCoreApplication::translate("NamingStyles", text);
}

}  // namespace

std::vector<NamingStyleText> namingStyleTexts() {
    return {{NamingStyle::original, namingWords("Original"), QStringLiteral("IMG_4821.jpg"),
             namingWords("Keeps original filenames. Folders: year/month/event.")},
            {NamingStyle::recommended, namingWords("Recommended"), QStringLiteral("2025-06-14_143052_IMG_4821.jpg"),
             namingWords("Adds date prefix to filename. Month folder is human-readable.")},
            {NamingStyle::cleanDate, namingWords("Clean date"), QStringLiteral("2025-06-14_IMG_4821.jpg"),
             namingWords("Renames to timestamp only. Month folder spelled out.")},
            {NamingStyle::archival, namingWords("Archival"), QStringLiteral("20250614T143052_iPhone14Pro_IMG_4821.jpg"),
             namingWords("Flat date folders, no event nesting. Best for Lightroom.")},
            {NamingStyle::custom, namingWords("Custom"), QString(),
             namingWords("Build your own format using tokens like {YYYY}, {Month}, {original}.")}};
}

QString namingStyleLabel(NamingStyle style) {
    const auto texts = namingStyleTexts();
    return std::ranges::find(texts, style, &NamingStyleText::style)->label;
}

}  // namespace vellomar
