// Points in time as the screens show them. Any thread.
#pragma once

#include <QLocale>
#include <QString>

#include "platform/Instant.h"

namespace vellomar {

// The date in the language's medium form and the time in its short one: "Jun 14, 2024, 11:40 AM". In the local zone.
[[nodiscard]] QString dateText(Instant time, const QLocale& locale);

// The same by a clock that shows UTC.
[[nodiscard]] QString utcDateText(Instant time, const QLocale& locale);

}  // namespace vellomar
