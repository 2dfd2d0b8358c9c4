#include "ui/inspector/DateExplanation.h"

#include <QCoreApplication>
#include <string>

#include "platform/Text.h"

namespace vellomar {
namespace {

QString explanationWords(const char* text) {
    return QCoreApplication::translate("DateExplanation", text);
}

}  // namespace

QString dateExplanation(std::string_view source) {
    const auto words = lowercased(source);
    const auto has = [&](std::string_view part) { return words.find(part) != std::string::npos; };
    if (has("exif datetimeoriginal") || has("tiff datetime"))
        return explanationWords(
            "The shoot date was read directly from the camera's EXIF metadata — this is the most reliable source, "
            "recorded by the camera at the moment the photo was taken.");
    if (has("exif"))
        return explanationWords(
            "The date was extracted from the file's embedded metadata using ExifTool. This covers RAW formats (ARW, "
            "CR2, NEF) and video containers that embed camera timestamps.");
    if (has("filename"))
        return explanationWords(
            "No EXIF date was found, so the date was parsed from the filename itself. Common patterns like "
            "IMG_20230614 or PXL_20230614 are detected automatically.");
    if (has("folder") && has("y/m"))
        return explanationWords(
            "The date was inferred from the folder path, which contained both a year and a month (e.g. '2023/08' or "
            "'08 - August'). Specific day is unknown so mid-month is used.");
    if (has("folder"))
        return explanationWords(
            "No EXIF or filename date was available. The year was extracted from the folder name (e.g. 'Fotos "
            "Vacaciones 2012'). Month is unknown so June 15 is used as a mid-year placeholder.");
    if (has("sibling"))
        return explanationWords(
            "This video had no metadata of its own. The year was borrowed from a JPEG file in the same folder that "
            "did have EXIF data — a safe assumption when photos and videos were shot together.");
    return explanationWords(
        "The date was taken from the file system's recorded creation or modification date. These are less reliable — "
        "they change when files are copied or moved.");
}

}  // namespace vellomar
