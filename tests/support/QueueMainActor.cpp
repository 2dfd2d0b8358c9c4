#include "support/QueueMainActor.h"

#include <algorithm>

namespace vellomar::testing {

using std::chrono::steady_clock;

void QueueMainActor::post(std::function<void()> work) {
    add(Time::min(), std::move(work));
}

void QueueMainActor::postAfter(std::chrono::milliseconds delay, std::function<void()> work) {
    add(steady_clock::now() + delay, std::move(work));
}

void QueueMainActor::runUntil(const std::function<bool()>& isDone) {
    constexpr std::chrono::milliseconds kBetweenQuestions(50);
    while (!isDone())
        if (const auto work = takeDue(steady_clock::now() + kBetweenQuestions)) work();
}

void QueueMainActor::runPending() {
    while (const auto work = takeDue(Time::min()))
        work();
}

void QueueMainActor::add(Time due, std::function<void()> work) {
    {
        const std::lock_guard guard(lock_);
        queue_.emplace(std::pair(due, posted_++), std::move(work));
    }
    added_.notify_one();
}

std::function<void()> QueueMainActor::takeDue(Time deadline) {
    std::unique_lock guard(lock_);
    while (true) {
        const auto now = steady_clock::now();
        if (!queue_.empty() && queue_.begin()->first.first <= now) {
            auto work = std::move(queue_.begin()->second);
            queue_.erase(queue_.begin());
            return work;
        }
        if (now >= deadline) return {};
        const auto nextDue = queue_.empty() ? deadline : std::min(deadline, queue_.begin()->first.first);
        added_.wait_until(guard, nextDue);
    }
}

}  // namespace vellomar::testing
