#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace vellomar {

void lowerPriorityOfThisThread() {
    // On Linux a nice value belongs to one thread. Half way down: polite, yet not starved by an idle-time indexer.
    constexpr int kUtilityNiceness = 10;
    const auto thread = static_cast<id_t>(gettid());
    if (getpriority(PRIO_PROCESS, thread) < kUtilityNiceness) setpriority(PRIO_PROCESS, thread, kUtilityNiceness);
}

}  // namespace vellomar
