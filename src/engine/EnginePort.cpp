#include "engine/EnginePort.h"

#include <utility>

namespace vellomar {

bool EnginePort::hop(Work work) {
    // Shared, as the wait may be given up while the work is still queued.
    const auto done = std::make_shared<bool>(false);
    mainActor_.post([self = shared_from_this(), done, work = std::move(work)] {
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

void EnginePort::post(Work work) {
    mainActor_.post([self = shared_from_this(), work = std::move(work)] {
        if (self->state_ != nullptr) work(*self->state_);
    });
}

bool EnginePort::isClosed() {
    const std::lock_guard guard(lock_);
    return closed_;
}

void EnginePort::close() {
    state_ = nullptr;
    const std::lock_guard guard(lock_);
    closed_ = true;
    changed_.notify_all();
}

}  // namespace vellomar
