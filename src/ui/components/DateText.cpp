#include "ui/components/DateText.h"

#include "platform/LocalTime.h"
#include "platform/TimeText.h"

namespace vellomar {

QString dateText(Instant time, const QLocale& locale) {
    return utcDateText(time + std::chrono::seconds(localUtcOffset(time)), locale);
}

QString utcDateText(Instant time, const QLocale& locale) {
    return QString::fromStdString(utcDateAndTimeText(time, locale.name().toStdString()));
}

}  // namespace vellomar
