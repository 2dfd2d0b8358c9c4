#include <chrono>
#include <stdexcept>

#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "platform/watch/LinuxFolderWatcher.h"
#include "support/EngineHarness.h"
#include "tools/WatchFolderMonitor.h"

namespace vellomar::driver {
namespace {

constexpr double kMostSeconds = 24 * 60 * 60;

std::chrono::milliseconds watchingTime(const Json& arguments) {
    const double seconds = numberOf(arguments, "seconds");
    if (!(seconds >= 0 && seconds <= kMostSeconds)) throw std::invalid_argument("argument 'seconds' is none of a day");
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

void deliverFor(std::chrono::milliseconds time, testing::QueueMainActor& mainActor) {
    bool isOver = false;
    mainActor.postAfter(time, [&] { isOver = true; });
    mainActor.runUntil([&] { return isOver; });
}

Json stateOf(const WatchFolderMonitor& monitor) {
    return {{"isWatching", monitor.isWatching()}, {"filesProcessed", monitor.filesProcessed()}, {"log", monitor.log()}};
}

Json watch(const Surroundings& surroundings, const Json& arguments) {
    const auto time = watchingTime(arguments);
    testing::EngineHarness harness({.exifTool = &surroundings.exifTool});
    LinuxFolderWatcher watcher(harness.realFileSystem);
    WatchFolderMonitor monitor(harness.engine,
                               {harness.mainActor, harness.realFileSystem, harness.systemClock, watcher});
    int runs = 0;
    harness.observer.onRunning = [&](bool isRunning) { isRunning ? static_cast<void>(++runs) : monitor.noteRunEnd(); };
    monitor.start(textOf(arguments, "source"), textOf(arguments, "dest"), optionsOf(arguments));
    deliverFor(time, harness.mainActor);
    auto result = stateOf(monitor);
    monitor.stop();
    harness.waitForEnd();
    result["runs"] = runs;
    return result;
}

}  // namespace

void addWatchOps(Ops& ops, Surroundings& surroundings) {
    ops["watch"] = [&](const Json& arguments) { return watch(surroundings, arguments); };
}

}  // namespace vellomar::driver
