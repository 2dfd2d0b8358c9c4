#pragma once

#include <QObject>
#include <chrono>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/MainActor.h"

namespace vellomar {

// The main actor of the application: what is posted runs in the event loop of the thread that made this.
//
// However much is posted, the loop comes to its own between: work is done for `turn` at most, or one piece of it, and
// the rest in the loop's next turns. Work that has an event loop of its own run holds up what comes after it.
//
// Destroyed on its own thread, after everything that posts to it. What has not run by then is dropped.
class EventLoopActor final : public QObject, public MainActor {
public:
    explicit EventLoopActor(std::chrono::milliseconds turn = std::chrono::milliseconds(8));
    ~EventLoopActor() override;
    EventLoopActor(const EventLoopActor&) = delete;
    EventLoopActor& operator=(const EventLoopActor&) = delete;

    void post(std::function<void()> work) override;
    void postAfter(std::chrono::milliseconds delay, std::function<void()> work) override;

private:
    void startDelay(std::chrono::milliseconds delay, const std::function<void()>& work);
    void scheduleTurn();
    void runTurn();
    // An empty function when there is none left.
    [[nodiscard]] std::function<void()> takeNext();

    const std::chrono::milliseconds turn_;
    bool isRunning_ = false;  // own thread only
    std::mutex lock_;
    std::deque<std::function<void()>> queue_;  // under lock_
    bool isScheduled_ = false;                 // under lock_
    bool isClosed_ = false;                    // under lock_
};

}  // namespace vellomar
