#include "ui/undo/RunDate.h"

#include "platform/StrictDateFormatter.h"
#include "ui/components/DateText.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {

QString runDateText(const std::string& runID, const QLocale& locale) {
    static const StrictDateFormatter kForm("yyyy-MM-dd'T'HH:mm:ss");
    const auto time = kForm.parse(runID);
    // The clock that the run's user saw, whatever zone it is read in: taken in UTC and shown in UTC.
    const QString date = time ? utcDateText(*time, locale) : QString();
    return date.isEmpty() ? displayText(runID) : date;
}

}  // namespace vellomar
