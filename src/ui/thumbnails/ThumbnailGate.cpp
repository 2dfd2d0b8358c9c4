#include "ui/thumbnails/ThumbnailGate.h"

#include <utility>

namespace vellomar {

void ThumbnailGate::acquire(Admitted admitted) {
    {
        const std::scoped_lock hold(lock_);
        if (slots_ == 0) {
            waiters_.push_back(std::move(admitted));
            return;
        }
        --slots_;
    }
    admitted();
}

void ThumbnailGate::release() {
    Admitted next;
    {
        const std::scoped_lock hold(lock_);
        if (waiters_.empty()) {
            ++slots_;
            return;
        }
        next = std::move(waiters_.front());
        waiters_.pop_front();
    }
    next();
}

}  // namespace vellomar
