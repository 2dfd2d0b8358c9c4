#include "engine/model/NamingStyle.h"

#include "engine/model/RawTexts.h"

namespace vellomar {
namespace {

constexpr RawTexts<NamingStyle, 5> kStyleTexts = {{
    {NamingStyle::original, "original"},
    {NamingStyle::recommended, "recommended"},
    {NamingStyle::cleanDate, "cleanDate"},
    {NamingStyle::archival, "archival"},
    {NamingStyle::custom, "custom"},
}};

}  // namespace

std::string_view rawText(NamingStyle style) {
    return rawTextIn(kStyleTexts, style);
}

std::optional<NamingStyle> namingStyleFrom(std::string_view rawText) {
    return valueIn(kStyleTexts, rawText);
}

}  // namespace vellomar
