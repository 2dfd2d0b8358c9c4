#include "dates/ExifBatch.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "dates/CameraText.h"
#include "dates/ExifDate.h"

namespace vellomar::ExifUtils {
namespace {

struct TrustedTag {
    const char* name;
    int score;
};

// Most trusted first.
constexpr std::array<TrustedTag, 12> kImageTags = {{
    {"DateTimeOriginal", 100},
    {"EXIF:DateTimeOriginal", 100},
    {"Sony:DateTimeOriginal", 100},
    {"Canon:DateTimeOriginal", 100},
    {"Nikon:DateTimeOriginal", 100},
    {"Panasonic:DateTimeOriginal", 100},
    {"CreateDate", 90},
    {"EXIF:CreateDate", 90},
    {"DateTimeDigitized", 90},
    {"XMP:CreateDate", 85},
    {"XMP:DateCreated", 85},
    {"FileModifyDate", 20},
}};

constexpr std::array<TrustedTag, 6> kVideoTags = {{
    {"MediaCreateDate", 90},
    {"TrackCreateDate", 85},
    {"QuickTime:CreateDate", 85},
    {"CreateDate", 80},
    {"CreationDate", 80},
    {"ModifyDate", 30},
}};

std::span<const TrustedTag> trustedTags(BatchKind kind) {
    if (kind == BatchKind::image) return kImageTags;
    return kVideoTags;
}

// What is asked for, with all dates in the one form that is quickest to read.
std::vector<std::string> argumentsFor(BatchKind kind) {
    if (kind == BatchKind::image)
        return {"-DateTimeOriginal",
                "-CreateDate",
                "-DateTimeDigitized",
                "-EXIF:DateTimeOriginal",
                "-EXIF:CreateDate",
                "-Sony:DateTimeOriginal",
                "-Canon:DateTimeOriginal",
                "-Nikon:DateTimeOriginal",
                "-Panasonic:DateTimeOriginal",
                "-XMP:CreateDate",
                "-XMP:DateCreated",
                "-FileModifyDate",
                "-d",
                "%Y:%m:%d %H:%M:%S",
                "-Make",
                "-Model"};
    return {"-MediaCreateDate",
            "-CreateDate",
            "-QuickTime:CreateDate",
            "-TrackCreateDate",
            "-ModifyDate",
            "-CreationDate",
            "-d",
            "%Y:%m:%d %H:%M:%S",
            "-Make",
            "-Model"};
}

// A value that is a text; ExifTool writes as numbers and truths whatever looks like one.
const std::string* textIn(const Json& record, const char* name) {
    const auto found = record.find(name);
    return found == record.end() ? nullptr : found->get_ptr<const std::string*>();
}

std::optional<std::string> copiedTextIn(const Json& record, const char* name) {
    const auto* text = textIn(record, name);
    if (text == nullptr) return std::nullopt;
    return *text;
}

std::optional<DateCandidate> dateIn(const Json& record, std::span<const TrustedTag> tags) {
    for (const auto& [name, score] : tags) {
        const auto* text = textIn(record, name);
        if (text == nullptr) continue;
        if (const auto date = parseExifDate(*text))
            return DateCandidate{*date, std::string("ExifTool ").append(name), score};
    }
    return std::nullopt;
}

std::optional<std::string> cameraIn(const Json& record) {
    auto make = copiedTextIn(record, "Make");
    if (auto camera = cameraText(make, copiedTextIn(record, "Model"))) return camera;
    if (make && make->empty()) return std::nullopt;
    return make;
}

void takeOver(const Json& record, std::span<const TrustedTag> tags, BatchExifResult& result) {
    const auto* path = textIn(record, "SourceFile");
    if (path == nullptr) return;
    if (auto date = dateIn(record, tags))
        result.dates.insert_or_assign(*path, std::move(*date));
    else
        result.dates.erase(*path);
    if (auto camera = cameraIn(record)) result.cameras.insert_or_assign(*path, std::move(*camera));
}

void readChunk(const ExifTool& exifTool, const BatchRequest& request, std::span<const TaggedFile* const> chunk,
               BatchExifResult& result) {
    auto arguments = argumentsFor(request.kind);
    arguments.reserve(arguments.size() + chunk.size());
    for (const auto* file : chunk)
        arguments.push_back(file->path);
    const auto records = exifTool.runExifToolJSON(arguments, request.timeout);
    if (!records) return;
    for (const auto& record : *records)
        takeOver(record, trustedTags(request.kind), result);
}

}  // namespace

BatchExifResult batchReadExif(const ExifTool& exifTool, const BatchRequest& request) {
    BatchExifResult result;
    const auto count = request.files.size();
    const auto chunkSize = std::max<std::size_t>(request.chunkSize, 1);
    std::size_t done = 0;
    while (done < count) {
        if (request.isCancelled && request.isCancelled()) break;
        const auto chunk = request.files.subspan(done, std::min(chunkSize, count - done));
        readChunk(exifTool, request, chunk, result);
        done += chunk.size();
        if (request.onProgress) request.onProgress(done, count);
    }
    return result;
}

bool anyVolumeNotLocal(FileSystem& fileSystem, std::span<const std::string> paths) {
    return std::ranges::any_of(paths.first(std::min(paths.size(), kVolumesLookedAt)), [&](const std::string& path) {
        const auto isLocal = fileSystem.volumeIsLocal(path);
        return isLocal && !*isLocal;
    });
}

}  // namespace vellomar::ExifUtils
