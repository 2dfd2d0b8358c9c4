#include "dates/VideoDate.h"

#include <string_view>

#include "dates/ExifDate.h"
#include "platform/StrictDateFormatter.h"

namespace vellomar::ExifUtils {
namespace {

constexpr int kCreationItemScore = 75;
constexpr int kAnyItemScore = 70;

std::optional<Instant> dateOf(std::string_view text) {
    static const StrictDateFormatter kIsoFormatter("yyyy-MM-dd'T'HH:mm:ssZ");
    if (const auto date = parseExifDate(text)) return date;
    return kIsoFormatter.parse(text);
}

std::optional<DateCandidate> fromCreationItem(const std::optional<std::string>& text) {
    if (!text) return std::nullopt;
    const auto date = dateOf(*text);
    if (!date) return std::nullopt;
    return DateCandidate{*date, "AVFoundation commonCreationDate", kCreationItemScore};
}

std::optional<DateCandidate> fromAnyItem(const VideoMetadataFormat& format) {
    for (const auto& text : format.texts)
        if (const auto date = dateOf(text))
            return DateCandidate{*date, "AVFoundation " + format.identifier, kAnyItemScore};
    return std::nullopt;
}

}  // namespace

std::optional<DateCandidate> videoDate(const VideoMetadata& metadata) {
    if (auto found = fromCreationItem(metadata.creationDate)) return found;
    for (const auto& format : metadata.formats)
        if (auto found = fromAnyItem(format)) return found;
    return std::nullopt;
}

}  // namespace vellomar::ExifUtils
