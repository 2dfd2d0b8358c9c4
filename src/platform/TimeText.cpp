#include "platform/TimeText.h"

#include <array>
#include <cstdlib>
#include <memory>

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include "platform/LocalTime.h"

namespace vellomar {
namespace {

// The C library's rule, which it would only follow for a program that took up the user's locale.
icu::Locale userLocale() {
    for (const char* name : std::array{"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return icu::Locale::createCanonical(value);
    }
    return icu::Locale::createCanonical("C");
}

std::string textInUtc(icu::DateFormat* owned, Instant instant) {
    const std::unique_ptr<icu::DateFormat> format(owned);
    if (!format) return {};
    format->setTimeZone(*icu::TimeZone::getGMT());
    icu::UnicodeString text;
    format->format(std::chrono::duration<double, std::milli>(instant.time_since_epoch()).count(), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

}  // namespace

// What the wall clock shows, read as UTC: which zone that is depends on more than this library looks at.
std::string timeOfDayText(Instant instant) {
    return textInUtc(icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, userLocale()),
                     instant + std::chrono::seconds(localUtcOffset(instant)));
}

std::string utcDateAndTimeText(Instant instant, const std::string& locale) {
    return textInUtc(icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort,
                                                             icu::Locale::createFromName(locale.c_str())),
                     instant);
}

}  // namespace vellomar
