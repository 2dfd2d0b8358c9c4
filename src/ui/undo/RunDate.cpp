#include "ui/undo/RunDate.h"

#include <memory>

#include <unicode/datefmt.h>
#include <unicode/timezone.h>

#include "platform/StrictDateFormatter.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

// The clock that the run's user saw, whatever zone it is read in: taken in UTC and shown in UTC.
QString shown(Instant time, const QLocale& locale) {
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

}  // namespace

QString runDateText(const std::string& runID, const QLocale& locale) {
    static const StrictDateFormatter kForm("yyyy-MM-dd'T'HH:mm:ss");
    const auto time = kForm.parse(runID);
    const QString date = time ? shown(*time, locale) : QString();
    return date.isEmpty() ? displayText(runID) : date;
}

}  // namespace vellomar
