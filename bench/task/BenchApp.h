#pragma once

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/VellomarApp.h"
#include "support/DecoderProgram.h"
#include "support/EngineHarness.h"
#include "support/ScriptedWatchers.h"

namespace vellomar::bench {

// Ticks as often as the event loop lets it.
class GapMeter {
public:
    GapMeter() {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(1);
        QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
    }

    void start() {
        last_ = SteadyClock::now();
        timer_.start();
    }

    [[nodiscard]] double longestSeconds() const { return std::chrono::duration<double>(longest_).count(); }

private:
    using SteadyClock = std::chrono::steady_clock;

    void tick() {
        const auto now = SteadyClock::now();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }

    QTimer timer_;
    SteadyClock::time_point last_;
    SteadyClock::duration longest_{};
};

// The whole application on a desktop where nobody is, with a source and a destination set.
class BenchApp {
public:
    BenchApp(const std::string& source, const std::string& dest)
        : app_({.settingsFile = dest + "/settings.json",
                .decoderProgram = testing::decoderProgram(),
                .pixelDecoderProgram = testing::pixelDecoderProgram(),
                .notifications = notifications_,
                .sleepInhibitor = sleepInhibitor_,
                .reveal = nobody_,
                .links = nobody_,
                .mounts = mounts_,
                .watchTimes = {},
                .makeFileChooser = [](QQmlEngine&, FileSystem&) { return std::make_unique<NoFileChooser>(); }}) {
        app_.settings().setValue("has_completed_wizard", true);
        app_.settings().setValue("last_sourcePath", source);
        app_.settings().setValue("last_destPath", dest);
    }

    // False if the window does not come up.
    [[nodiscard]] bool show() {
        if (!app_.show()) return false;
        waitUntil([this] { return app_.window()->isExposed(); });
        return true;
    }

    [[nodiscard]] VellomarApp& app() { return app_; }
    [[nodiscard]] ContentViewModel& content() { return app_.content(); }

    static void waitUntil(const std::function<bool()>& isDone) {
        while (!isDone())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }

private:
    class NoFileChooser final : public FileChooser {
    public:
        void choose(const FileQuestion& /*question*/, Done done) override { done({}); }
    };

    class NobodyThere final : public FileReveal, public LinkOpener {
    public:
        void reveal(const std::string& /*path*/) override {}
        void openFirst(const std::vector<std::string>& /*uris*/) override {}
    };

    testing::RecordingNotifications notifications_;
    testing::CountingSleepInhibitor sleepInhibitor_;
    NobodyThere nobody_;
    testing::ScriptedMountWatcher mounts_;
    VellomarApp app_;
};

}  // namespace vellomar::bench
