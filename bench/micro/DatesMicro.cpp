#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "dates/DateDecision.h"
#include "dates/FilenameDates.h"
#include "dates/FolderDates.h"
#include "engine/model/DateString.h"
#include "platform/Clock.h"
#include "platform/LinuxFileSystem.h"
#include "platform/LocalTime.h"
#include "support/EngineHarness.h"

namespace vellomar {
namespace {

const Instant kNow = instantFromUnixSeconds(std::int64_t{1'700'000'000});  // 2023-11-14

void readFilename(benchmark::State& state, std::string_view stem) {
    for (auto _ : state)
        benchmark::DoNotOptimize(filenameCandidate(stem, kNow));
}
BENCHMARK_CAPTURE(readFilename, compact, "20230814_143021_00001");
BENCHMARK_CAPTURE(readFilename, prefixed, "IMG_20230814_143021");
BENCHMARK_CAPTURE(readFilename, dotted, "2023-08-14 14.30.21");
BENCHMARK_CAPTURE(readFilename, whatsApp, "IMG-20230814-WA0001");
BENCHMARK_CAPTURE(readFilename, undated, "DSC_004711");

void readFolder(benchmark::State& state, std::string_view path) {
    for (auto _ : state)
        benchmark::DoNotOptimize(folderYearMonth(path, true, kNow));
}
BENCHMARK_CAPTURE(readFolder, clear, "Photos/2012-08");
BENCHMARK_CAPTURE(readFolder, words, "Photos/Fotos Vacaciones 2012");
BENCHMARK_CAPTURE(readFolder, undated, "Photos/Birthday/DCIM/100CANON");

// As in a dry run over network storage: names and folders alone. The files of one folder follow one another.
void decide(benchmark::State& state, const std::string& path) {
    LinuxFileSystem fileSystem;
    const SystemClock clock;
    const testing::FixedUserDefaults userDefaults;
    FolderEvidenceCache folderEvidence;
    SiblingYears siblingYears;
    const std::string source = "/media/card";
    const std::string dest = "/home/user/Photos";
    const Options options{.storageIsNetwork = true};
    const ExifDates noDates;
    const ExifCameras noCameras;
    const std::vector<FolderRenameRule> noRules;
    const DecisionContext context{fileSystem, clock, userDefaults, nullptr, folderEvidence, siblingYears};
    const DecisionRequest request{path, source, dest, options, noDates, noCameras, noRules};
    for (auto _ : state)
        benchmark::DoNotOptimize(decideFile(context, request));
}
BENCHMARK_CAPTURE(decide, dated, "/media/card/2023/Vacation in Rome/20230814_143021_00001.jpg");
BENCHMARK_CAPTURE(decide, undated, "/media/card/2023/Vacation in Rome/DSC_004711.NEF");

void writeDate(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(dateString(kNow, "yyyy-MM-dd HH:mm:ss"));
}
BENCHMARK(writeDate);

void findInstant(benchmark::State& state, const CivilTime& civil) {
    for (auto _ : state)
        benchmark::DoNotOptimize(strictLocalInstant(civil));
}
BENCHMARK_CAPTURE(findInstant, summer, CivilTime{2023, 8, 14, 14, 30, 21});
BENCHMARK_CAPTURE(findInstant, impossible, CivilTime{2023, 2, 31, 14, 30, 21});

}  // namespace
}  // namespace vellomar
