#include "ui/components/StatusPillWords.h"

namespace vellomar {

QString StatusPillWords::text() const {
    if (isRunning_) return tr("RUNNING");
    return statusText_.isEmpty() ? tr("READY") : statusText_.toUpper();
}

}  // namespace vellomar
