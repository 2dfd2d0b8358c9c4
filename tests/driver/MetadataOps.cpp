#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "dates/CameraModel.h"
#include "dates/EmbeddedMetadataReader.h"
#include "dates/ExifBatch.h"
#include "dates/ExifDate.h"
#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "driver/Results.h"
#include "driver/Surroundings.h"
#include "duplicates/PerceptualHash.h"
#include "support/DecoderProgram.h"

namespace vellomar::driver {
namespace {

using ExifUtils::BatchKind;
using ExifUtils::ExifTool;

Json exifDate(const Json& arguments) {
    return jsonOf(ExifUtils::parseExifDate(textOf(arguments, "text")));
}

// A reader for each request: between two of them a file may have changed, and a reader remembers the last one.
template <typename Read>
auto readingFrom(Surroundings& surroundings, Read read) {
    EmbeddedMetadataReader reader(surroundings.fileSystem, testing::decoderProgram());
    return read(reader);
}

Json camera(MetadataReader& reader, const Json& arguments) {
    Options options;
    options.storageIsNetwork = flagOf(arguments, "storageIsNetwork", false);
    return readCameraModel(exifCamerasOf(arguments), textOf(arguments, "path"), options, &reader);
}

// The value as a decimal text: a number of JSON need not have room for 64 bits.
Json pictureHash(Surroundings& surroundings, const Json& arguments) {
    const auto hash = perceptualHash(surroundings.fileSystem, surroundings.pixels, textOf(arguments, "path"));
    return hash ? Json(std::to_string(*hash)) : Json(nullptr);
}

Json exifTool(const ExifTool& exifTool) {
    const auto& command = exifTool.locateExifTool();
    if (!command) return nullptr;
    return {{"executable", command->executable}, {"leadingArguments", command->leadingArguments}};
}

BatchKind batchKindOf(const Json& arguments) {
    const auto kind = textOf(arguments, "kind");
    if (kind == "image") return BatchKind::image;
    if (kind == "video") return BatchKind::video;
    throw std::invalid_argument("argument 'kind' is neither \"image\" nor \"video\"");
}

std::size_t chunkSizeOf(const Json& arguments) {
    const double size = numberOf(arguments, "chunkSize");
    if (!(size >= 1 && size <= 1e6)) throw std::invalid_argument("argument 'chunkSize' is out of range");
    return static_cast<std::size_t>(size);
}

std::chrono::milliseconds timeoutOf(const Json& arguments) {
    const double seconds = numberOf(arguments, "timeout");
    if (!(seconds >= -1e6 && seconds <= 1e6)) throw std::invalid_argument("argument 'timeout' is out of range");
    return std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

Json datesOf(const ExifDates& dates) {
    Json result = Json::object();
    for (const auto& [path, candidate] : dates)
        result[path] = jsonOf(candidate);
    return result;
}

Json batch(const ExifTool& exifTool, const Json& arguments) {
    std::vector<TaggedFile> files;
    for (auto& path : textsOf(arguments, "files"))
        files.push_back({std::move(path), nullptr, std::nullopt});
    std::vector<const TaggedFile*> pointers;
    for (const auto& file : files)
        pointers.push_back(&file);
    Json progress = Json::array();
    const auto result = batchReadExif(exifTool, {.files = pointers,
                                                 .kind = batchKindOf(arguments),
                                                 .chunkSize = chunkSizeOf(arguments),
                                                 .timeout = timeoutOf(arguments),
                                                 .isCancelled = {},
                                                 .onProgress = [&](std::size_t done, std::size_t total) {
                                                     progress.push_back({done, total});
                                                 }});
    return {{"dates", datesOf(result.dates)}, {"cameras", result.cameras}, {"progress", progress}};
}

}  // namespace

void addMetadataOps(Ops& ops, Surroundings& surroundings) {
    ops["parseExifDate"] = exifDate;
    ops["sidecarCandidate"] = [&](const Json& arguments) {
        return readingFrom(surroundings,
                           [&](auto& reader) { return jsonOf(reader.sidecarCandidate(textOf(arguments, "path"))); });
    };
    ops["readImageDate"] = [&](const Json& arguments) {
        return readingFrom(surroundings,
                           [&](auto& reader) { return jsonOf(reader.readImageDate(textOf(arguments, "path"))); });
    };
    ops["readVideoDate"] = [&](const Json& arguments) {
        return readingFrom(surroundings,
                           [&](auto& reader) { return jsonOf(reader.readVideoDate(textOf(arguments, "path"))); });
    };
    ops["readCameraModel"] = [&](const Json& arguments) {
        return readingFrom(surroundings, [&](auto& reader) { return camera(reader, arguments); });
    };
    ops["perceptualHash"] = [&](const Json& arguments) { return pictureHash(surroundings, arguments); };
    ops["locateExifTool"] = [&](const Json&) { return exifTool(surroundings.exifTool); };
    ops["batchReadExif"] = [&](const Json& arguments) { return batch(surroundings.exifTool, arguments); };
}

}  // namespace vellomar::driver
