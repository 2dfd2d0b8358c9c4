#pragma once

namespace vellomar {

// Lets everything that a user is waiting for go before the calling thread, for the rest of its life. Where the system
// does not allow it the thread simply keeps its priority.
void lowerPriorityOfThisThread();

}  // namespace vellomar
