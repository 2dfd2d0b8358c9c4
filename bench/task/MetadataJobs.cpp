#include "task/MetadataJobs.h"

#include <stdexcept>
#include <vector>

#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifBatch.h"
#include "duplicates/PerceptualHash.h"
#include "measure/Measurement.h"
#include "measure/PathList.h"
#include "platform/LinuxFileSystem.h"
#include "platform/decoder/MetadataDecoder.h"
#include "platform/decoder/PixelDecoder.h"
#include "platform/decoder/worker/MappedFile.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"
#include "support/DecoderProgram.h"

namespace vellomar::bench {
namespace {

constexpr std::uint64_t kBytesOfDate = std::string_view("2023:08:14 14:30:21").size();

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

ImageProperties propertiesOf(InputFile& file) {
    const MappedFile content(file.descriptor());
    return readImageProperties(content.bytes());
}

// `ask` looks into an open file and tells whether there was an answer.
template <typename Ask>
Amount askEach(const std::vector<std::string>& paths, const Ask& ask) {
    LinuxFileSystem fileSystem;
    Amount sum;
    for (const auto& path : paths) {
        const auto file = fileSystem.openForReading(path, true);
        if (!file || !ask(**file)) throw std::runtime_error("there is no answer for " + path);
        ++sum.files;
    }
    return sum;
}

}  // namespace

void askExifTool(const std::string& list) {
    std::vector<TaggedFile> files;
    for (const auto& path : pathsIn(list))
        files.push_back({path, nullptr, std::nullopt});
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

void askDecoder(const std::string& list) {
    const auto paths = pathsIn(list);
    MetadataDecoder decoder(testing::decoderProgram());
    printMeasurementOf([&] {
        return askEach(paths,
                       [&](InputFile& file) { return decoder.readMetadata(file, MediaKind::image).has_value(); });
    });
}

void askHere(const std::string& list) {
    const auto paths = pathsIn(list);
    prepareImageLibrary();
    printMeasurementOf(
        [&] { return askEach(paths, [](InputFile& file) { return propertiesOf(file) == ImageProperties{}; }); });
}

void hashPictures(const std::string& list) {
    const auto paths = pathsIn(list);
    LinuxFileSystem fileSystem;
    PixelDecoder decoder(testing::pixelDecoderProgram());
    // Its start counts for neither side.
    if (!perceptualHash(fileSystem, decoder, paths.front())) throw std::runtime_error("there is no decoder");
    printMeasurementOf([&] {
        Amount sum;
        for (const auto& path : paths) {
            if (!perceptualHash(fileSystem, decoder, path)) throw std::runtime_error("there is no hash of " + path);
            ++sum.files;
        }
        return sum;
    });
}

}  // namespace vellomar::bench
