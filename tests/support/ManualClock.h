#pragma once

#include "platform/Clock.h"

namespace vellomar::testing {

// Stands still until it is told.
class ManualClock final : public Clock {
public:
    explicit ManualClock(Instant now) : now_(now) {}

    [[nodiscard]] Instant now() const override { return now_; }
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override { return steady_; }

    void set(Instant now) { now_ = now; }
    void advance(std::chrono::milliseconds by) {
        now_ += by;
        steady_ += by;
    }

private:
    Instant now_;
    std::chrono::steady_clock::time_point steady_{};
};

}  // namespace vellomar::testing
