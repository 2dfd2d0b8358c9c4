#pragma once

#include <deque>
#include <functional>
#include <mutex>

namespace vellomar {

// Lets at most three in at a time, strictly in the order in which they came: more would only get in each other's way on
// a slow disk. Any thread.
class ThumbnailGate {
public:
    using Admitted = std::function<void()>;

    // Calls `admitted` once there is a slot for it: at once, or later from within somebody's release(). It must not
    // throw, and whoever was let in must release() exactly once.
    void acquire(Admitted admitted);

    // Hands the slot on to the one who has waited longest, or keeps it for the next.
    void release();

private:
    std::mutex lock_;
    int slots_ = 3;
    std::deque<Admitted> waiters_;
};

}  // namespace vellomar
