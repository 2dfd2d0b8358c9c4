#pragma once

#include <chrono>

#include "platform/Instant.h"

namespace vellomar {

// Where the core reads the time, so that a test can tick it. Any thread.
class Clock {
public:
    virtual ~Clock() = default;

    // The time of day, as the system believes it.
    [[nodiscard]] virtual Instant now() const = 0;

    // For durations alone: never jumps when the system's time is set.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point steadyNow() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Instant now() const override {
        return std::chrono::time_point_cast<Instant::duration>(std::chrono::system_clock::now());
    }
    [[nodiscard]] std::chrono::steady_clock::time_point steadyNow() const override {
        return std::chrono::steady_clock::now();
    }
};

}  // namespace vellomar
