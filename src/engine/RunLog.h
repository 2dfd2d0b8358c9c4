#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "engine/EngineObserver.h"
#include "engine/EnginePort.h"
#include "platform/MainActor.h"

namespace vellomar {

// The activity log on its way to the published lines: in batches, so that a run over a large library does not flood
// the interface. No line waits longer than half a second.
class RunLog : public std::enable_shared_from_this<RunLog> {
public:
    RunLog(MainActor& mainActor, std::shared_ptr<EnginePort> port, EngineObserver* observer)
        : mainActor_(mainActor), port_(std::move(port)), observer_(observer) {}

    // Adds a line. From any thread.
    void appendLog(std::string line);

    // Hands what has gathered to the main actor; unless forced, only a full batch. From any thread.
    void flushLog(bool force);

private:
    void scheduleFlush();

    MainActor& mainActor_;
    std::shared_ptr<EnginePort> port_;
    EngineObserver* observer_;
    std::mutex logLock_;
    std::vector<std::string> logBuffer_;  // under logLock_
    bool isFlushScheduled_ = false;       // under logLock_
};

}  // namespace vellomar
