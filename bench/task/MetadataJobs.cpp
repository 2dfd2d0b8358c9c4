#include "task/MetadataJobs.h"

#include <fstream>
#include <stdexcept>
#include <vector>

#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifBatch.h"
#include "dates/ImageDate.h"
#include "measure/Measurement.h"
#include "platform/LinuxFileSystem.h"
#include "platform/decoder/worker/ImagePropertiesReader.h"
#include "platform/decoder/worker/MappedFile.h"
#include "support/DecoderProgram.h"

namespace vellomar::bench {
namespace {

constexpr std::uint64_t kBytesOfDate = std::string_view("2023:08:14 14:30:21").size();

std::vector<std::string> pathsIn(const std::string& list) {
    std::vector<std::string> paths;
    std::ifstream file(list);
    for (std::string path; std::getline(file, path);)
        paths.push_back(path);
    return paths;
}

// Every photo has a date: a reading that finds none is no measurement.
template <typename HasDate>
Amount readEach(const std::vector<std::string>& paths, const HasDate& hasDate) {
    Amount sum;
    for (const auto& path : paths) {
        if (!hasDate(path)) throw std::runtime_error("there is no date in " + path);
        ++sum.files;
        sum.bytes += kBytesOfDate;
    }
    return sum;
}

bool hasDateInside(FileSystem& fileSystem, const std::string& path) {
    const auto file = fileSystem.openForReading(path, true);
    if (!file) return false;
    const MappedFile content((*file)->descriptor());
    return ExifUtils::imageDate(readImageProperties(content.bytes())).has_value();
}

}  // namespace

void askExifTool(const std::string& list) {
    std::vector<TaggedFile> files;
    for (auto& path : pathsIn(list))
        files.push_back({std::move(path), nullptr, std::nullopt});
    std::vector<const TaggedFile*> asked;
    for (const auto& file : files)
        asked.push_back(&file);
    LinuxFileSystem fileSystem;
    const ExifUtils::ExifTool exifTool(fileSystem);
    printMeasurementOf([&] {
        const auto result = batchReadExif(exifTool, {.files = asked, .isCancelled = {}, .onProgress = {}});
        return Amount{result.dates.size(), 0};
    });
}

void readByDecoder(const std::string& list) {
    const auto paths = pathsIn(list);
    LinuxFileSystem fileSystem;
    EmbeddedMetadataReader reader(fileSystem, testing::decoderProgram());
    printMeasurementOf([&] {
        return readEach(paths, [&](const std::string& path) {
            return reader.readImageDate(path).has_value() && reader.readImageCamera(path).has_value();
        });
    });
}

void readHere(const std::string& list) {
    const auto paths = pathsIn(list);
    LinuxFileSystem fileSystem;
    prepareImageLibraries();
    printMeasurementOf(
        [&] { return readEach(paths, [&](const std::string& path) { return hasDateInside(fileSystem, path); }); });
}

}  // namespace vellomar::bench
