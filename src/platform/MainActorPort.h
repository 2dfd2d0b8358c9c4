#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/MainActor.h"

namespace vellomar {

// The way of work on other threads to a state that belongs to the main actor, for no longer than the state's owner
// lives. Kept alive by both.
template <typename State>
class MainActorPort : public std::enable_shared_from_this<MainActorPort<State>> {
public:
    using Work = std::function<void(State&)>;

    // `state` must stay until close().
    MainActorPort(MainActor& mainActor, State& state) : mainActor_(mainActor), state_(&state) {}

    // Has `work` done on the main actor and returns when it is. False if the owner went first: then the work is not
    // done, now or later. From any thread but the main actor's own.
    bool hop(Work work) {
        // Shared, as the wait may be given up while the work is still queued.
        const auto done = std::make_shared<bool>(false);
        mainActor_.post([self = this->shared_from_this(), done, work = std::move(work)] {
            if (self->state_ == nullptr) return;
            work(*self->state_);
            const std::lock_guard guard(self->lock_);
            *done = true;
            self->changed_.notify_all();
        });
        std::unique_lock guard(lock_);
        changed_.wait(guard, [&] { return *done || closed_; });
        return *done;
    }

    // As above without waiting. From any thread. What is posted and hopped is done in the order of the calls.
    void post(Work work) {
        mainActor_.post([self = this->shared_from_this(), work = std::move(work)] {
            if (self->state_ != nullptr) work(*self->state_);
        });
    }

    // Whether the owner has gone. From any thread.
    [[nodiscard]] bool isClosed() {
        const std::lock_guard guard(lock_);
        return closed_;
    }

    // The owner goes: nobody waits for it any longer. Main actor only.
    void close() {
        state_ = nullptr;
        const std::lock_guard guard(lock_);
        closed_ = true;
        changed_.notify_all();
    }

private:
    MainActor& mainActor_;
    State* state_;  // main actor only; null once closed
    std::mutex lock_;
    std::condition_variable changed_;
    bool closed_ = false;  // under lock_
};

}  // namespace vellomar
