#include "engine/StageFixture.h"

#include <thread>

namespace vellomar {

void StageTest::processed(const std::string& destination, const std::string& sha256, std::int64_t dateSeconds) {
    auto& [path, placed] = *state.usedDestPaths.try_emplace(destination).first;
    placed.fileDate = instantFromUnixSeconds(dateSeconds);
    if (!sha256.empty()) state.hashGroups[sha256].emplace_back(path);
}

void StageTest::perform(const std::function<void(const RunContext&, RunState&)>& stage) {
    observer.state = &main.published.state();
    const auto services = harness.servicesFor({.fileSystem = fileSystem});
    const auto runLog = std::make_shared<RunLog>(harness.mainActor, port, &observer);
    bool isDone = false;
    std::jthread thread([&] {
        stage({request, services, *port, *runLog, {}}, state);
        runLog->flushLog(true);
        harness.mainActor.post([&isDone] { isDone = true; });
    });
    harness.mainActor.runUntil([&isDone] { return isDone; });
    harness.mainActor.runPending();
}

}  // namespace vellomar
