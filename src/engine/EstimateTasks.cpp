#include "engine/EstimateTasks.h"

#include <utility>

#include "engine/Estimate.h"
#include "platform/ThreadPriority.h"

namespace vellomar {

void EstimateTasks::start(std::vector<std::string> sources, const Options& options, Done done) {
    const auto task = tasks_.emplace(tasks_.end());
    *task = std::jthread([this, task, &fileSystem = fileSystem_, port = port_, sources = std::move(sources), options,
                          done = std::move(done)](const std::stop_token& abandon) mutable {
        lowerPriorityOfThisThread();
        const auto estimate = estimateRun(fileSystem, sources, options, abandon);
        // `this` is there whenever the port still lets work through; it may be gone when `done` returns.
        port->post([this, task, estimate, done = std::move(done)](MainActorState&) {
            tasks_.erase(task);
            done(estimate);
        });
    });
}

void EstimateTasks::requestStop() {
    for (auto& task : tasks_)
        task.request_stop();
}

}  // namespace vellomar
