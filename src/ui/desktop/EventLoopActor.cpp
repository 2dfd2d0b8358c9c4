#include "ui/desktop/EventLoopActor.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <utility>

namespace vellomar {

EventLoopActor::EventLoopActor(std::chrono::milliseconds turn) : turn_(turn) {}

EventLoopActor::~EventLoopActor() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard guard(lock_);
        isClosed_ = true;
        dropped.swap(queue_);
    }
    // What work holds may post once more when it goes, so all of it goes while the rest of this is there.
    dropped.clear();
    QCoreApplication::removePostedEvents(this);
    const auto timers = children();
    qDeleteAll(timers);
}

void EventLoopActor::post(std::function<void()> work) {
    {
        const std::lock_guard guard(lock_);
        if (isClosed_) return;
        queue_.push_back(std::move(work));
        if (std::exchange(isScheduled_, true)) return;
    }
    scheduleTurn();
}

void EventLoopActor::postAfter(std::chrono::milliseconds delay, std::function<void()> work) {
    QMetaObject::invokeMethod(
        this, [this, delay, work = std::move(work)] { startDelay(delay, work); }, Qt::QueuedConnection);
}

void EventLoopActor::startDelay(std::chrono::milliseconds delay, const std::function<void()>& work) {
    auto* const timer = new QTimer(this);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);  // a coarse one may fire early
    timer->callOnTimeout(this, [this, timer, work] {
        timer->deleteLater();
        post(work);
    });
    timer->start(delay);
}

void EventLoopActor::scheduleTurn() {
    QMetaObject::invokeMethod(
        this, [this] { runTurn(); }, Qt::QueuedConnection);
}

void EventLoopActor::runTurn() {
    if (isRunning_) return;  // in an event loop of the work under way, after which its turn goes on
    isRunning_ = true;
    const QDeadlineTimer end(turn_, Qt::PreciseTimer);
    bool isDone = false;
    do {
        const auto work = takeNext();
        if (work)
            work();
        else
            isDone = true;
    } while (!isDone && !end.hasExpired());
    isRunning_ = false;
    if (!isDone) scheduleTurn();
}

std::function<void()> EventLoopActor::takeNext() {
    const std::lock_guard guard(lock_);
    if (queue_.empty()) {
        isScheduled_ = false;
        return {};
    }
    auto work = std::move(queue_.front());
    queue_.pop_front();
    return work;
}

}  // namespace vellomar
