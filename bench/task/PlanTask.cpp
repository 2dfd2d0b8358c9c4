// The plan's own window, on no display, over a plan of a library: what it costs to look through it.
//
// Usage: plan_task bind|search|scroll SOURCE DEST. What it prints as "seconds" is
//   bind    how long it takes to bring a row into sight, without drawing it, on the average
//   search  the longest time from a keystroke in the search, or a click on a filter, to rows that are laid out
//   scroll  the longest time between two turns of the event loop while all rows pass by; "peakMemory" is by how much
//   the
//           memory grew meanwhile
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#include "measure/Measurement.h"
#include "task/BenchApp.h"
#include "ui/QmlModule.h"

namespace vellomar::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;

class PlanTask {
public:
    PlanTask(const std::string& source, const std::string& dest) : bench_(source, dest) {
        // What is measured is the window, not the run.
        for (const char* const option : {"opt_computeHash", "opt_useExifImages"})
            bench_.app().settings().setValue(option, false);
    }

    [[nodiscard]] bool begin() {
        if (!bench_.show()) return false;
        bench_.content().run()->startDryRun();
        BenchApp::waitUntil([this] { return !bench_.app().engine().hasTask(); });
        bench_.content().planWindow()->open();
        auto* const window = bench_.app().window()->findChild<QQuickWindow*>("planWindow");
        BenchApp::waitUntil([&] { return window->isExposed(); });
        list_ = window->findChild<QQuickItem*>("planList");
        return list_ != nullptr;
    }

    [[nodiscard]] double bindSeconds() {
        constexpr int kSteps = 1'000;
        constexpr double kRowHeight = 80;
        SteadyClock::duration spent{};
        for (int step = 1; step <= kSteps; ++step) {
            const auto start = SteadyClock::now();
            list_->setProperty("contentY", step * kRowHeight);
            QMetaObject::invokeMethod(list_, "forceLayout");
            spent += SteadyClock::now() - start;
            if (step % 10 == 0) QCoreApplication::processEvents();
        }
        return std::chrono::duration<double>(spent).count() / kSteps;
    }

    [[nodiscard]] double searchSeconds() {
        auto* const filters = bench_.content().planWindow()->plan()->filters();
        double longest = 0;
        const auto note = [&](const std::function<void()>& change) {
            const auto start = SteadyClock::now();
            change();
            QMetaObject::invokeMethod(list_, "forceLayout");
            longest = std::max(longest, std::chrono::duration<double>(SteadyClock::now() - start).count());
            QCoreApplication::processEvents();
        };
        for (const char* const text : {"i", "im", "img", "img_", "img_2", "img_", "", "august"})
            note([&] { filters->setSearchText(QString::fromLatin1(text)); });
        note([&] { filters->setSearchText({}); });
        for (int i = 0; i < 4; ++i)
            note([&] { filters->years()->toggle(0); });
        return longest;
    }

    [[nodiscard]] double scrollSeconds() {
        GapMeter meter;
        meter.start();
        const double page = list_->height();
        for (double place = 0; place < list_->property("contentHeight").toDouble() - page; place += page / 4) {
            list_->setProperty("contentY", place);
            const auto next = SteadyClock::now() + std::chrono::milliseconds(16);
            BenchApp::waitUntil([&] { return SteadyClock::now() >= next; });
        }
        return meter.longestSeconds();
    }

    [[nodiscard]] int rows() { return bench_.content().planWindow()->plan()->rows()->total(); }

private:
    BenchApp bench_;
    QQuickItem* list_ = nullptr;
};

int measure(std::string_view kind, const std::string& source, const std::string& dest) {
    PlanTask task(source, dest);
    if (!task.begin()) return 1;
    const auto before = peakMemory();
    const double cpuStart = processCpuSeconds();
    const double seconds = kind == "bind"     ? task.bindSeconds()
                           : kind == "search" ? task.searchSeconds()
                                              : task.scrollSeconds();
    std::printf(R"({"seconds":%.9f,"cpuSeconds":%.9f,"files":%d,"bytes":0,"peakMemory":%llu})"
                "\n",
                seconds, processCpuSeconds() - cpuStart, task.rows(),
                static_cast<unsigned long long>(peakMemory() - before));
    return 0;
}

}  // namespace
}  // namespace vellomar::bench

int main(int argc, char** argv) {
    constexpr int kArguments = 4;
    if (argc != kArguments) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    vellomar::chooseStyle();
    return vellomar::bench::measure(argv[1], argv[2], argv[3]);
}
