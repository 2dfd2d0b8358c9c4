#include "task/Jobs.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <unordered_set>

#include <fmt/format.h>

#include "engine/Estimate.h"
#include "engine/OrganizerEngine.h"
#include "engine/SourceScan.h"
#include "measure/Measurement.h"
#include "platform/FileDigest.h"
#include "support/EngineHarness.h"
#include "task/DuplicateJobs.h"
#include "task/MetadataJobs.h"
#include "task/PlaceJobs.h"
#include "undo/ManifestFiles.h"

namespace vellomar::bench {
namespace {

using testing::EngineHarness;

Options everythingWithoutExifTool() {
    Options options;
    options.useExifToolForImages = false;
    options.useExifToolForVideo = false;
    options.includeImages = true;
    options.includeVideos = true;
    options.includeOther = true;
    options.computeHashForDuplicates = false;
    return options;
}

Options onNetwork(Options options) {
    options.storageIsNetwork = true;
    return options;
}

Options withDigests(Options options) {
    options.computeHashForDuplicates = true;
    return options;
}

Options verifiedCopy() {
    auto options = withDigests(everythingWithoutExifTool());
    options.dryRun = false;
    options.verifyAfterCopy = true;
    return options;
}

ScanResult scanned(const std::string& source, const Options& options) {
    LinuxFileSystem fileSystem;
    const ScanReports reports{.filesFound = [](std::size_t) {}, .log = [](const std::string&) {}};
    return scanSources(fileSystem, {source}, options, {}, reports);
}

std::uint64_t unsignedOf(std::int64_t count) {
    return static_cast<std::uint64_t>(count);
}

void scan(const std::string& source, const Options& options) {
    std::optional<ScanResult> result;  // outlives the measurement, as it outlives a run's scan
    printMeasurementOf([&] {
        result = scanned(source, options);
        return Amount{result->files.size(), unsignedOf(result->fileSizes.total())};
    });
}

void estimate(const std::string& source) {
    LinuxFileSystem fileSystem;
    printMeasurementOf([&] {
        const auto found = estimateRun(fileSystem, {source}, Options{});
        return Amount{unsignedOf(found.fileCount), unsignedOf(found.totalBytes)};
    });
}

// An empty source ends a run early; its measurement shows what a process costs before its first file.
void run(const std::string& source, const std::string& dest, const Options& options) {
    EngineHarness harness;
    testing::NoMetadataReaders noReaders;
    // The harness's own observer remembers all that it sees, which is no memory of the engine's.
    harness.engine = std::make_unique<OrganizerEngine>(harness.servicesFor({.metadataReaders = &noReaders}));
    printMeasurementOf([&] {
        harness.run({source}, dest, options);
        const auto& state = harness.state();
        return Amount{unsignedOf(state.libraryStats.totalFiles), unsignedOf(state.bytesProcessed)};
    });
    const auto& state = harness.state();
    if (state.totalFilesScanned > 0 && state.statusText != "Done") throw std::runtime_error(state.statusText);
    if (state.verifyFailures > 0) throw std::runtime_error("copies differ from their sources");
}

void undo(const std::string& path) {
    EngineHarness harness;
    harness.engine = std::make_unique<OrganizerEngine>(harness.servicesFor({}));
    auto manifest = importManifest(harness.realFileSystem, path);
    if (!manifest) throw std::runtime_error(manifest.error().description);
    std::uint64_t bytes = 0;
    for (const auto& entry : manifest->entries)
        bytes += unsignedOf(harness.realFileSystem.status(entry.destination).map(&FileStatus::size).value_or(0));
    const auto count = manifest->entries.size();
    printMeasurementOf([&] {
        harness.undo(*std::move(manifest));
        return Amount{count, bytes};
    });
    const auto& outcome = harness.state().statusText;
    if (outcome != fmt::format("Undo complete — reversed: {}  skipped: 0  failed: 0", count))
        throw std::runtime_error(outcome);
}

Amount digested(FileSystem& fileSystem, const std::string& path, std::int64_t size) {
    if (!sha256OfFile(fileSystem, path)) throw std::runtime_error("cannot read " + path);
    return {1, unsignedOf(size)};
}

void digest(const std::string& path) {
    LinuxFileSystem fileSystem;
    const auto status = fileSystem.status(path);
    if (!status) throw std::runtime_error("cannot look at " + path);
    printMeasurementOf([&] { return digested(fileSystem, path, status->size); });
}

void digestAll(const std::string& source) {
    LinuxFileSystem fileSystem;
    const auto found = scanned(source, everythingWithoutExifTool());
    printMeasurementOf([&] {
        Amount sum;
        for (const auto& file : found.files) {
            const auto one = digested(fileSystem, file.path, file.size.value_or(0));
            sum.files += one.files;
            sum.bytes += one.bytes;
        }
        return sum;
    });
}

Job scanWith(const Options& options) {
    return [options](const std::string& source, const std::string& /*dest*/) { scan(source, options); };
}

Job runWith(const Options& options) {
    return [options](const std::string& source, const std::string& dest) { run(source, dest, options); };
}

}  // namespace

const std::map<std::string_view, Job>& jobs() {
    static const auto basic = everythingWithoutExifTool();
    static const std::map<std::string_view, Job> all = {
        {"scan", scanWith(basic)},
        {"scan-network", scanWith(onNetwork(basic))},
        {"estimate", [](const std::string& source, const std::string& /*dest*/) { estimate(source); }},
        {"plan-network", runWith(onNetwork(basic))},
        {"plan", runWith(basic)},
        {"plan-hashed", runWith(withDigests(basic))},
        {"copy", runWith(verifiedCopy())},
        {"digest", [](const std::string& source, const std::string& /*dest*/) { digest(source); }},
        {"digest-all", [](const std::string& source, const std::string& /*dest*/) { digestAll(source); }},
        {"undo", [](const std::string& manifest, const std::string& /*dest*/) { undo(manifest); }},
        {"near-duplicates", &findNearDuplicatesAmong},
        {"load-places", [](const std::string& count, const std::string& /*dest*/) { loadPlaces(count); }},
        {"find-places", [](const std::string& count, const std::string& /*dest*/) { findPlaces(count); }},
        {"exiftool", [](const std::string& list, const std::string& /*dest*/) { askExifTool(list); }},
        {"read", [](const std::string& list, const std::string& /*dest*/) { readByDecoder(list); }},
        {"ask", [](const std::string& list, const std::string& /*dest*/) { askDecoder(list); }},
        {"ask-here", [](const std::string& list, const std::string& /*dest*/) { askHere(list); }},
        {"hash-pictures", [](const std::string& list, const std::string& /*dest*/) { hashPictures(list); }},
    };
    return all;
}

}  // namespace vellomar::bench
