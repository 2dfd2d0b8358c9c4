#include <string>

#include <benchmark/benchmark.h>

#include "naming/BuildDestination.h"
#include "platform/FreeName.h"
#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

void nameFile(benchmark::State& state, NamingStyle style) {
    const Options options{.namingStyle = style};
    const Instant date = instantFromUnixSeconds(std::int64_t{1'692'016'221});
    const std::string source = "/media/card/2023/Vacation/IMG_4821.JPG";
    const std::optional<std::string> event = "Vacation";
    const std::string dest = "/home/user/Photos";
    for (auto _ : state)
        benchmark::DoNotOptimize(buildDestination(source, date, event, dest, options));
}
BENCHMARK_CAPTURE(nameFile, original, NamingStyle::original);
BENCHMARK_CAPTURE(nameFile, recommended, NamingStyle::recommended);
BENCHMARK_CAPTURE(nameFile, cleanDate, NamingStyle::cleanDate);
BENCHMARK_CAPTURE(nameFile, archival, NamingStyle::archival);
BENCHMARK_CAPTURE(nameFile, custom, NamingStyle::custom);

// With as many files of the wanted name in the way as the argument says.
void findFreeName(benchmark::State& state) {
    LinuxFileSystem fileSystem;
    const testing::TemporaryFolder folder;
    const std::string wanted = folder / "a.jpg";
    for (int taken = 0; taken < state.range(0); ++taken)
        static_cast<void>(fileSystem.createFile(uniqueDestination(fileSystem, wanted), NewFileAccess::owner));
    for (auto _ : state)
        benchmark::DoNotOptimize(uniqueDestination(fileSystem, wanted));
}
BENCHMARK(findFreeName)->Arg(0)->Arg(1)->Arg(100);

}  // namespace
}  // namespace vellomar
