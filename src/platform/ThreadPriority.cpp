#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace vellomar {

void lowerPriorityOfThisThread() {
    // On Linux a nice value belongs to one thread. Half way down: polite, yet not starved by an idle-time indexer.
    constexpr int kUtilityNiceness = 10;
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kUtilityNiceness);
}

}  // namespace vellomar
