#include "naming/NamingStyleTexts.h"

#include "naming/NamingTemplate.h"

namespace vellomar {

std::string_view descriptionOf(NamingStyle style) {
    switch (style) {
        case NamingStyle::original: return "Keeps original filenames. Folders: year/month/event.";
        case NamingStyle::recommended: return "Adds date prefix to filename. Month folder is human-readable.";
        case NamingStyle::cleanDate: return "Renames to timestamp only. Month folder spelled out.";
        case NamingStyle::archival: return "Flat date folders, no event nesting. Best for Lightroom.";
        case NamingStyle::custom: break;
    }
    return "Build your own format using tokens like {YYYY}, {Month}, {original}.";
}

std::string sampleOf(NamingStyle style, std::string_view customFormat) {
    switch (style) {
        case NamingStyle::original: return "IMG_4821.JPG";
        case NamingStyle::recommended: return "2025-06-14_143052_IMG_4821.jpg";
        case NamingStyle::cleanDate: return "2025-06-14_IMG_4821.jpg";
        case NamingStyle::archival: return "20250614T143052_iPhone14Pro_IMG_4821.jpg";
        case NamingStyle::custom: break;
    }
    return renderTemplatePreview(customFormat);
}

}  // namespace vellomar
