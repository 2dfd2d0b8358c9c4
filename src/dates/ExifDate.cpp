#include "dates/ExifDate.h"

#include <algorithm>

#include "dates/Digits.h"
#include "platform/LocalTime.h"
#include "platform/StrictDateFormatter.h"

namespace vellomar::ExifUtils {
namespace {

bool isDateSeparator(char c) {
    return c == ':' || c == '-';
}

bool hasUsualShape(std::string_view text) {
    return text.size() >= std::string_view("yyyy:MM:dd HH:mm:ss").size() && isDateSeparator(text[4]) &&
           isDateSeparator(text[7]) && text[10] == ' ' && text[13] == ':' && text[16] == ':';
}

// The number in `digits`, if it lies within the bounds. Anything but ASCII digits is no number.
std::optional<int> fieldOf(std::string_view digits, int least, int most) {
    if (!std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; })) return std::nullopt;
    const int value = numberOf(digits);
    if (value < least || value > most) return std::nullopt;
    return value;
}

std::optional<Instant> dateWithoutZone(std::string_view text) {
    if (!hasUsualShape(text)) return std::nullopt;
    const auto year = fieldOf(text.substr(0, 4), 1901, 9999);
    const auto month = fieldOf(text.substr(5, 2), 1, 12);
    const auto day = fieldOf(text.substr(8, 2), 1, 31);
    const auto hour = fieldOf(text.substr(11, 2), 0, 23);
    const auto minute = fieldOf(text.substr(14, 2), 0, 59);
    const auto second = fieldOf(text.substr(17, 2), 0, 59);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
    return lenientLocalInstant({*year, *month, *day, *hour, *minute, *second});
}

std::optional<Instant> zonedDate(std::string_view text) {
    // The zone in any spelling: +0200 and +02:00 alike, whatever letters stand for it in the pattern.
    static const StrictDateFormatter kFormatters[] = {StrictDateFormatter("yyyy:MM:dd HH:mm:ssZ"),
                                                      StrictDateFormatter("yyyy-MM-dd HH:mm:ssZ")};
    for (const auto& formatter : kFormatters)
        if (const auto date = formatter.parse(text)) return date;
    return std::nullopt;
}

}  // namespace

std::optional<Instant> parseExifDate(std::string_view text) {
    if (const auto date = dateWithoutZone(text)) return date;
    return zonedDate(text);
}

}  // namespace vellomar::ExifUtils
