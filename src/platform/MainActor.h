#pragma once

#include <chrono>
#include <functional>

namespace vellomar {

// The one thread on which published state may change: in the application the interface's event loop, elsewhere a plain
// queue. What is posted runs there one after the other, in the order of posting.
class MainActor {
public:
    virtual ~MainActor() = default;

    // From any thread; returns at once.
    virtual void post(std::function<void()> work) = 0;

    // From any thread; returns at once. The work runs no earlier than `delay` from now.
    virtual void postAfter(std::chrono::milliseconds delay, std::function<void()> work) = 0;
};

}  // namespace vellomar
