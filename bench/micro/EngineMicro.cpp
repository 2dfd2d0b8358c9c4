#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "support/EngineHarness.h"

namespace vellomar {
namespace {

// A line's whole way, from the run to the published lines.
void logLine(benchmark::State& state) {
    constexpr int kLinesBetweenDeliveries = 200;
    testing::EngineHarness harness;
    // Without the harness's own observer, which remembers every line.
    harness.engine = std::make_unique<OrganizerEngine>(harness.servicesFor({}));
    const std::string line = "[DRY] Copy: /media/card/IMG_4821.JPG -> /home/user/Photos/2023/08 - August/IMG_4821.jpg";
    int lines = 0;
    for (auto _ : state) {
        harness.engine->appendLog(line);
        if (++lines % kLinesBetweenDeliveries == 0) harness.mainActor.runPending();
    }
}
BENCHMARK(logLine);

}  // namespace
}  // namespace vellomar
