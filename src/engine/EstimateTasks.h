#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "engine/EnginePort.h"
#include "engine/model/Options.h"
#include "engine/model/RunEstimate.h"
#include "platform/FileSystem.h"

namespace vellomar {

// The estimates that are under way, each on a thread of its own. Main actor only. Destroying it abandons them: it waits
// for the call to the disk that each is in, not for the walk.
class EstimateTasks {
public:
    using Done = std::function<void(const RunEstimate&)>;

    // `fileSystem` must outlive this. Results are delivered for as long as `port` is open, and `port` must be closed
    // before this goes.
    EstimateTasks(FileSystem& fileSystem, std::shared_ptr<EnginePort> port)
        : fileSystem_(fileSystem), port_(std::move(port)) {}
    ~EstimateTasks() { requestStop(); }
    EstimateTasks(const EstimateTasks&) = delete;
    EstimateTasks& operator=(const EstimateTasks&) = delete;

    // Returns at once. `done` is called once, later and on the main actor; it may do as it likes with the engine.
    void start(std::vector<std::string> sources, const Options& options, Done done);

    // Abandons all without waiting. The port must be closed by now.
    void requestStop();

private:
    FileSystem& fileSystem_;
    std::shared_ptr<EnginePort> port_;
    std::list<std::jthread> tasks_;
};

}  // namespace vellomar
