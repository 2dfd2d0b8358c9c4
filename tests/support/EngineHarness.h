#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifTool.h"
#include "engine/OrganizerEngine.h"
#include "platform/LinuxFileSystem.h"
#include "support/DecoderProgram.h"
#include "support/QueueMainActor.h"

namespace vellomar::testing {

// Keeps the last notification instead of showing it.
class RecordingNotifications final : public NotificationService {
public:
    struct Notification {
        std::string title;
        std::string body;
    };

    void notify(const std::string& title, const std::string& body) override;
    [[nodiscard]] std::optional<Notification> last() const;

private:
    mutable std::mutex lock_;
    std::optional<Notification> last_;
};

// Counts who keeps the desktop awake.
class CountingSleepInhibitor final : public SleepInhibitor {
public:
    [[nodiscard]] std::unique_ptr<Hold> inhibit(const std::string& reason) override;
    [[nodiscard]] int holds() const { return *holds_; }
    [[nodiscard]] int holdsEver() const { return *holdsEver_; }
    [[nodiscard]] std::string lastReason() const;

private:
    mutable std::mutex lock_;
    std::string lastReason_;  // under lock_
    std::shared_ptr<std::atomic<int>> holds_ = std::make_shared<std::atomic<int>>(0);
    std::shared_ptr<std::atomic<int>> holdsEver_ = std::make_shared<std::atomic<int>>(0);
};

class FixedUserDefaults final : public UserDefaults {
public:
    explicit FixedUserDefaults(bool secretFloppyMode = false) : secretFloppyMode_(secretFloppyMode) {}
    [[nodiscard]] bool secretFloppyMode() const override { return secretFloppyMode_; }

private:
    bool secretFloppyMode_;
};

// For runs that leave files unopened.
class NoMetadataReaders final : public MetadataReaders {
public:
    [[nodiscard]] std::unique_ptr<MetadataReader> open() override { return nullptr; }
};

// Remembers all that an engine published.
class RecordingObserver final : public EngineObserver {
public:
    void fieldChanged(PublishedField field) override;
    void linesAppended(std::size_t count) override;
    void lineLogged(std::string_view line) override;

    const PublishedState* state = nullptr;           // of the observed engine
    std::vector<std::string> allLogLines;            // without the cap of the published list
    std::vector<std::string> statusHistory;          // every distinct consecutive status
    std::vector<double> progressHistory;             // every progress
    std::function<void(std::string_view)> onLine;    // on the logging thread
    std::function<void(std::string_view)> onStatus;  // on the main actor
    std::function<void(bool)> onRunning;             // on the main actor
};

// An engine with surroundings of its own, driven from the calling thread, which is its main actor.
class EngineHarness {
public:
    struct Setup {
        FileSystem* fileSystem = nullptr;               // the real one by default
        const Clock* clock = nullptr;                   // the system's by default
        const ExifUtils::ExifTool* exifTool = nullptr;  // the system's by default
        MetadataReaders* metadataReaders = nullptr;     // real ones by default
        bool secretFloppyMode = false;
        std::string pixelDecoderProgram = testing::pixelDecoderProgram();
    };

    EngineHarness() : EngineHarness(Setup{}) {}
    explicit EngineHarness(const Setup& setup);

    // The surroundings that its engine has.
    [[nodiscard]] EngineServices servicesFor(const Setup& setup);

    // A whole run; returns when it has ended and all that it posted was delivered.
    void run(const std::vector<std::string>& sources, const std::string& dest, const Options& options);

    // A whole undo, likewise.
    void undo(UndoManifest manifest);

    // Delivers until the run under way has ended.
    void waitForEnd();

    // Cancels as soon as a logged line, or a status, holds `text`.
    void cancelWhenLogged(std::string text);
    void cancelWhenStatus(std::string text);

    [[nodiscard]] const PublishedState& state() const { return engine->state(); }

    LinuxFileSystem realFileSystem;
    SystemClock systemClock;
    ExifUtils::ExifTool systemExifTool{realFileSystem, {}};
    EmbeddedMetadataReaders realMetadataReaders{realFileSystem, decoderProgram()};
    QueueMainActor mainActor;
    RecordingNotifications notifications;
    CountingSleepInhibitor sleepInhibitor;
    FixedUserDefaults userDefaults;
    RecordingObserver observer;
    std::shared_ptr<OrganizerEngine> engine;
};

}  // namespace vellomar::testing
