#include "tools/DateShifter.h"

#include <utility>

#include "platform/ThreadPriority.h"
#include "tools/ShiftableFiles.h"

namespace vellomar {

// All that a shift needs on its own thread.
struct DateShifter::Request {
    Services services;
    std::shared_ptr<Port> port;
    std::vector<std::string> folders;
    DateShift shift;
};

namespace {

void shiftFile(const ExifUtils::ExifTool& exifTool, const DateShift& shift, const std::string& path) {
    const auto arguments = shiftArguments(shift, path);
    // A file that ExifTool cannot change stays as it was, and the others have their turn.
    if (arguments) static_cast<void>(exifTool.runExifTool(*arguments));
}

DateShiftState outcomeOf(const DateShift& shift, bool isWhole, std::size_t done, std::size_t files) {
    return {.isRunning = false,
            .progress = 1.0,
            .statusText = isWhole ? shiftOutcome(shift, files) : stoppedShiftOutcome(shift, done, files),
            .done = done,
            .files = files};
}

}  // namespace

DateShifter::DateShifter(const Services& services, std::function<void()> whenChanged)
    : services_(services),
      main_{{}, std::move(whenChanged)},
      port_(std::make_shared<Port>(services.mainActor, main_)) {}

DateShifter::~DateShifter() {
    // In this order: a shift that waits for the main actor, which is busy here, must stop waiting before it is joined.
    port_->close();
    stop();
}

void DateShifter::applyShift(std::vector<std::string> folders, const DateShift& shift) {
    if (main_.state.isRunning) return;
    main_.publish({.isRunning = true, .progress = 0, .statusText = {}, .done = 0, .files = 0});
    // The thread of an earlier shift has published its outcome and is at its end, so that joining it takes no time.
    task_ = std::jthread([request = Request{services_, port_, std::move(folders), shift}](const std::stop_token& stop) {
        lowerPriorityOfThisThread();
        perform(request, stop);
    });
}

void DateShifter::perform(const Request& request, const std::stop_token& stop) {
    auto awake = request.services.sleepInhibitor.inhibit("Shifting dates");
    const auto paths = collectShiftableFiles(request.services.fileSystem, request.folders, stop);
    bool isWhole = !stop.stop_requested();
    std::size_t done = 0;
    for (const auto& path : paths) {
        isWhole = !stop.stop_requested();
        if (!isWhole) break;
        shiftFile(request.services.exifTool, request.shift, path);
        if (!publishProgress(request, ++done, paths.size(), path)) return;
    }
    awake.reset();
    request.port->post([outcome = outcomeOf(request.shift, isWhole, done, paths.size())](Published& main) mutable {
        main.publish(std::move(outcome));
    });
}

// False when nobody is there any more to see it. It waits until it is seen: shifts by nothing would flood the
// interface.
bool DateShifter::publishProgress(const Request& request, std::size_t done, std::size_t files,
                                  const std::string& path) {
    return request.port->hop([=](Published& main) {
        main.publish({.isRunning = true,
                      .progress = static_cast<double>(done) / static_cast<double>(files),
                      .statusText = shiftProgress(done, files, path),
                      .done = done,
                      .files = files});
    });
}

void DateShifter::Published::publish(DateShiftState changed) {
    state = std::move(changed);
    if (whenChanged) whenChanged();
}

}  // namespace vellomar
