// The whole application with its window, on no display, sorting a library: how long its event loop hears nothing.
//
// Usage: window_task SOURCE DEST. What it prints as "seconds" is the longest time between two turns of the event loop.
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "app/VellomarApp.h"
#include "measure/Measurement.h"
#include "support/DecoderProgram.h"
#include "support/EngineHarness.h"
#include "ui/QmlModule.h"

namespace vellomar::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Nobody is there to choose.
class NoFileChooser final : public FileChooser {
public:
    void choose(const FileQuestion& /*question*/, Done done) override { done({}); }
};

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
    void tick() {
        const auto now = SteadyClock::now();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }

    QTimer timer_;
    SteadyClock::time_point last_;
    SteadyClock::duration longest_{};
};

class WindowTask {
public:
    WindowTask(const std::string& source, const std::string& dest)
        : app_({.settingsFile = dest + "/settings.json",
                .decoderProgram = testing::decoderProgram(),
                .pixelDecoderProgram = testing::pixelDecoderProgram(),
                .notifications = notifications_,
                .sleepInhibitor = sleepInhibitor_,
                .makeFileChooser = [](QQmlEngine&, FileSystem&) { return std::make_unique<NoFileChooser>(); }}) {
        app_.settings().setValue("last_sourcePath", source);
        app_.settings().setValue("last_destPath", dest);
    }

    // False if the window does not come up.
    [[nodiscard]] bool run() {
        if (!app_.show()) return false;
        waitUntil([this] { return app_.window()->isExposed(); });
        app_.content().run()->askRun();
        waitUntil([this] { return app_.content().run()->estimate().has_value(); });
        meter_.start();
        app_.content().run()->confirmRun();
        waitUntil([this] { return !app_.engine().hasTask(); });
        return true;
    }

    [[nodiscard]] double longestSeconds() const { return meter_.longestSeconds(); }
    [[nodiscard]] Amount amount() { return {static_cast<std::uint64_t>(app_.engine().state().totalFilesScanned), 0}; }

private:
    static void waitUntil(const std::function<bool()>& isDone) {
        while (!isDone())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }

    testing::RecordingNotifications notifications_;
    testing::CountingSleepInhibitor sleepInhibitor_;
    VellomarApp app_;
    GapMeter meter_;
};

int measure(const std::string& source, const std::string& dest) {
    WindowTask task(source, dest);
    const double cpuStart = processCpuSeconds();
    if (!task.run()) return 1;
    std::printf(R"({"seconds":%.9f,"cpuSeconds":%.9f,"files":%llu,"bytes":0,"peakMemory":%llu})"
                "\n",
                task.longestSeconds(), processCpuSeconds() - cpuStart,
                static_cast<unsigned long long>(task.amount().files), static_cast<unsigned long long>(peakMemory()));
    return 0;
}

}  // namespace
}  // namespace vellomar::bench

int main(int argc, char** argv) {
    constexpr int kArguments = 3;
    if (argc != kArguments) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    vellomar::chooseStyle();
    return vellomar::bench::measure(argv[1], argv[2]);
}
