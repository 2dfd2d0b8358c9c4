#include "dates/ImageDate.h"

#include "dates/ExifDate.h"

namespace vellomar::ExifUtils {
namespace {

std::optional<ImageEXIFResult> resultOf(const std::optional<std::string>& text, const char* reason) {
    if (!text) return std::nullopt;
    const auto date = parseExifDate(*text);
    if (!date) return std::nullopt;
    return ImageEXIFResult{*date, reason};
}

}  // namespace

std::optional<ImageEXIFResult> imageDate(const ImageProperties& properties) {
    if (auto found = resultOf(properties.dateTimeOriginal, "EXIF DateTimeOriginal")) return found;
    if (auto found = resultOf(properties.dateTimeDigitized, "EXIF DateTimeDigitized")) return found;
    return resultOf(properties.dateTime, "EXIF TIFF DateTime");
}

}  // namespace vellomar::ExifUtils
