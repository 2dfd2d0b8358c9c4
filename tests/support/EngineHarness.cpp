#include "support/EngineHarness.h"

#include <atomic>
#include <future>
#include <utility>

namespace vellomar::testing {
namespace {

class CountedHold final : public SleepInhibitor::Hold {
public:
    explicit CountedHold(std::shared_ptr<std::atomic<int>> count) : count_(std::move(count)) { ++*count_; }
    ~CountedHold() override { --*count_; }
    CountedHold(const CountedHold&) = delete;
    CountedHold& operator=(const CountedHold&) = delete;

private:
    std::shared_ptr<std::atomic<int>> count_;
};

}  // namespace

void RecordingNotifications::notify(const std::string& title, const std::string& body) {
    const std::lock_guard guard(lock_);
    last_ = {title, body};
}

std::optional<RecordingNotifications::Notification> RecordingNotifications::last() const {
    const std::lock_guard guard(lock_);
    return last_;
}

std::unique_ptr<SleepInhibitor::Hold> CountingSleepInhibitor::inhibit(const std::string& reason) {
    const std::lock_guard guard(lock_);
    lastReason_ = reason;
    ++*holdsEver_;
    return std::make_unique<CountedHold>(holds_);
}

std::string CountingSleepInhibitor::lastReason() const {
    const std::lock_guard guard(lock_);
    return lastReason_;
}

void RecordingObserver::fieldChanged(PublishedField field) {
    if (field == PublishedField::isRunning && onRunning) onRunning(state->isRunning);
    if (field == PublishedField::progress) progressHistory.push_back(state->progress);
    if (field != PublishedField::statusText) return;
    const auto& status = state->statusText;
    if (statusHistory.empty() || statusHistory.back() != status) statusHistory.push_back(status);
    if (onStatus) onStatus(status);
}

void RecordingObserver::linesAppended(std::size_t count) {
    const auto& lines = state->logLines;
    allLogLines.insert(allLogLines.end(), lines.end() - static_cast<std::ptrdiff_t>(count), lines.end());
}

void RecordingObserver::lineLogged(std::string_view line) {
    if (onLine) onLine(line);
}

EngineHarness::EngineHarness(const Setup& setup) : userDefaults(setup.secretFloppyMode) {
    engine = std::make_shared<OrganizerEngine>(servicesFor(setup), &observer);
    observer.state = &engine->state();
}

EngineServices EngineHarness::servicesFor(const Setup& setup) {
    FileSystem& fileSystem = setup.fileSystem != nullptr ? *setup.fileSystem : realFileSystem;
    const Clock& clock = setup.clock != nullptr ? *setup.clock : systemClock;
    const auto& exifTool = setup.exifTool != nullptr ? *setup.exifTool : systemExifTool;
    MetadataReaders& readers = setup.metadataReaders != nullptr ? *setup.metadataReaders : realMetadataReaders;
    return {mainActor,     fileSystem,     clock,
            notifications, sleepInhibitor, userDefaults,
            exifTool,      readers,        setup.pixelDecoderProgram};
}

void EngineHarness::run(const std::vector<std::string>& sources, const std::string& dest, const Options& options) {
    engine->startRun(sources, dest, options);
    waitForEnd();
}

void EngineHarness::undo(UndoManifest manifest) {
    engine->undo(std::move(manifest));
    mainActor.runUntil([&] { return !state().isRunning; });
    mainActor.runPending();
}

void EngineHarness::waitForEnd() {
    mainActor.runUntil([&] { return !engine->hasTask(); });
    mainActor.runPending();
}

void EngineHarness::cancelWhenLogged(std::string text) {
    // The run waits until it is cancelled, so that it does not run on while the main actor is busy.
    observer.onLine = [this, text = std::move(text), isDone = false](std::string_view line) mutable {
        if (isDone || line.find(text) == std::string_view::npos) return;
        isDone = true;
        std::promise<void> cancelled;
        mainActor.post([&] {
            engine->cancelRun();
            cancelled.set_value();
        });
        cancelled.get_future().wait();
    };
}

void EngineHarness::cancelWhenStatus(std::string text) {
    observer.onStatus = [this, text = std::move(text), isDone = false](std::string_view status) mutable {
        if (isDone || status.find(text) == std::string_view::npos) return;
        isDone = true;
        engine->cancelRun();
    };
}

}  // namespace vellomar::testing
