// The whole application with its window, on no display, sorting a library: how long its event loop hears nothing.
//
// Usage: window_task SOURCE DEST. What it prints as "seconds" is the longest time between two turns of the event loop.
#include <QGuiApplication>
#include <QQuickWindow>
#include <cstdio>
#include <string>

#include "measure/Measurement.h"
#include "task/BenchApp.h"
#include "ui/QmlModule.h"

namespace vellomar::bench {
namespace {

int measure(const std::string& source, const std::string& dest) {
    BenchApp bench(source, dest);
    GapMeter meter;
    const double cpuStart = processCpuSeconds();
    if (!bench.show()) return 1;
    bench.content().run()->askRun();
    BenchApp::waitUntil([&] { return bench.content().run()->estimate().has_value(); });
    meter.start();
    bench.content().run()->confirmRun();
    BenchApp::waitUntil([&] { return !bench.app().engine().hasTask(); });
    std::printf(R"({"seconds":%.9f,"cpuSeconds":%.9f,"files":%d,"bytes":0,"peakMemory":%llu})"
                "\n",
                meter.longestSeconds(), processCpuSeconds() - cpuStart, bench.app().engine().state().totalFilesScanned,
                static_cast<unsigned long long>(peakMemory()));
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
