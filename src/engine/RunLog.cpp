#include "engine/RunLog.h"

#include <chrono>

namespace vellomar {
namespace {

constexpr std::size_t kBatchSize = 200;
constexpr std::chrono::milliseconds kLongestWait(500);

}  // namespace

void RunLog::appendLog(std::string line) {
    if (observer_ != nullptr) observer_->lineLogged(line);
    bool isFull = false;
    bool needsSchedule = false;
    {
        const std::lock_guard guard(logLock_);
        logBuffer_.push_back(std::move(line));
        isFull = logBuffer_.size() >= kBatchSize;
        needsSchedule = !isFull && !isFlushScheduled_;
        if (needsSchedule) isFlushScheduled_ = true;
    }
    if (isFull) flushLog(true);
    if (needsSchedule) scheduleFlush();
}

void RunLog::flushLog(bool force) {
    const std::lock_guard guard(logLock_);
    if (logBuffer_.empty() || (!force && logBuffer_.size() < kBatchSize)) return;
    // Posting under the lock keeps two batches in the order in which they were taken.
    port_->post([lines = std::exchange(logBuffer_, {})](MainActorState& state) mutable {
        state.published.appendLogLines(std::move(lines));
    });
}

void RunLog::scheduleFlush() {
    mainActor_.postAfter(kLongestWait, [weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self) return;
        {
            const std::lock_guard guard(self->logLock_);
            self->isFlushScheduled_ = false;
        }
        self->flushLog(true);
    });
}

}  // namespace vellomar
