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

}  // namespace

std::string timeOfDayText(Instant instant) {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, userLocale()));
    if (!format) return {};
    // What the wall clock shows, read as UTC: which zone that is depends on more than this library looks at.
    format->setTimeZone(*icu::TimeZone::getGMT());
    const auto shown = instant.time_since_epoch() + std::chrono::seconds(localUtcOffset(instant));
    icu::UnicodeString text;
    format->format(std::chrono::duration<double, std::milli>(shown).count(), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

}  // namespace vellomar
