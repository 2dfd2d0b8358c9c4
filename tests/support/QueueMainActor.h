#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <utility>

#include "platform/MainActor.h"

namespace vellomar::testing {

// A main actor without an event loop: what is posted waits until the owning thread runs it.
class QueueMainActor final : public MainActor {
public:
    void post(std::function<void()> work) override;
    void postAfter(std::chrono::milliseconds delay, std::function<void()> work) override;

    // Runs what is posted, waiting for more, until `isDone` says so; it is asked before each piece of work.
    void runUntil(const std::function<bool()>& isDone);

    // Runs all that is due now, without waiting.
    void runPending();

private:
    using Time = std::chrono::steady_clock::time_point;
    using Queue = std::map<std::pair<Time, std::uint64_t>, std::function<void()>>;

    void add(Time due, std::function<void()> work);
    // Waits until `deadline` for work that is due; an empty function if none came.
    [[nodiscard]] std::function<void()> takeDue(Time deadline);

    std::mutex lock_;
    std::condition_variable added_;
    Queue queue_;               // under lock_, by time and then by the order of posting
    std::uint64_t posted_ = 0;  // under lock_
};

}  // namespace vellomar::testing
