#include "ui/desktop/BackgroundWork.h"

namespace vellomar {

constexpr int kThreads = 4;

BackgroundWork::BackgroundWork() {
    threads_.setMaxThreadCount(kThreads);
}

BackgroundWork::~BackgroundWork() {
    threads_.clear();
    threads_.waitForDone();
}

void BackgroundWork::start(Task task) {
    threads_.start([this, task = std::move(task)]() mutable {
        auto finish = task();
        task = nullptr;  // or the last trace of it might go on this thread
        {
            const std::lock_guard guard(lock_);
            finished_.push_back(std::move(finish));
        }
        QMetaObject::invokeMethod(
            this, [this] { deliverNext(); }, Qt::QueuedConnection);
    });
}

void BackgroundWork::deliverNext() {
    std::unique_lock guard(lock_);
    const auto finish = std::move(finished_.front());
    finished_.pop_front();
    guard.unlock();
    finish();
}

}  // namespace vellomar
