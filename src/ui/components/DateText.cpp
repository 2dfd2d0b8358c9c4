#include "ui/components/DateText.h"

#include <memory>

#include <unicode/datefmt.h>
#include <unicode/timezone.h>

#include "platform/LocalTime.h"

namespace vellomar {

QString dateText(Instant time, const QLocale& locale) {
    return utcDateText(time + std::chrono::seconds(localUtcOffset(time)), locale);
}

QString utcDateText(Instant time, const QLocale& locale) {
    const auto name = locale.name().toStdString();
    const std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kMedium, icu::DateFormat::kShort, icu::Locale::createFromName(name.c_str())));
    if (!format) return {};
    format->setTimeZone(*icu::TimeZone::getGMT());
    const auto sinceEpoch = std::chrono::duration<double, std::milli>(time.time_since_epoch());
    icu::UnicodeString text;
    format->format(sinceEpoch.count(), text);
    return QString::fromUtf16(text.getBuffer(), text.length());
}

}  // namespace vellomar
