#pragma once

#include <atomic>

namespace vellomar {

// A flag that outlives the call that sets it. Any thread.
class CancellationToken {
public:
    void cancel() { cancelled_ = true; }
    [[nodiscard]] bool cancelled() const { return cancelled_; }

private:
    std::atomic<bool> cancelled_ = false;
};

}  // namespace vellomar
