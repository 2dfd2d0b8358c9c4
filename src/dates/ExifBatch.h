#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "dates/ExifMaps.h"
#include "dates/ExifTool.h"
#include "engine/model/TaggedFile.h"

namespace vellomar::ExifUtils {

// What ExifTool told of many files. A file of which it told nothing is in neither.
struct BatchExifResult {
    ExifDates dates;
    ExifCameras cameras;
};

// Which tags are asked for, and how far each is trusted.
enum class BatchKind { image, video };

struct BatchRequest {
    std::span<const TaggedFile* const> files;
    BatchKind kind = BatchKind::image;
    std::size_t chunkSize = 200;                // files that one start of ExifTool reads, at least 1
    std::chrono::milliseconds timeout{30'000};  // for one chunk; zero or less for none

    // Asked before each chunk; yes ends the reading with what there is by then. A chunk that has begun is finished.
    std::function<bool()> isCancelled;

    // Told after each chunk, whether or not it could be read.
    std::function<void(std::size_t filesDone, std::size_t filesInAll)> onProgress;
};

// Reads the dates and cameras of `request.files`, chunk after chunk in their order. Both functions are called on this
// thread; each may be empty.
//
// The first tag whose value is a date counts, in this order:
//
//   image  100  DateTimeOriginal, EXIF:, Sony:, Canon:, Nikon:, Panasonic:DateTimeOriginal
//           90  CreateDate, EXIF:CreateDate, DateTimeDigitized
//           85  XMP:CreateDate, XMP:DateCreated
//           20  FileModifyDate
//   video   90  MediaCreateDate
//           85  TrackCreateDate, QuickTime:CreateDate
//           80  CreateDate, CreationDate
//           30  ModifyDate
//
// Its candidate is labelled "ExifTool " and the tag. A camera is its maker and model, the model alone where it names
// its maker already, or the maker alone.
//
// A chunk that fails or takes too long leaves its files without entries, in silence. So does one whose paths are more
// than the kernel passes on (2 MiB in all, 128 KiB each), which is far from what paths can be. A record belongs to the
// path that it names; a path that is not UTF-8 does not come back as it was, and finds nothing. Any thread; it blocks.
[[nodiscard]] BatchExifResult batchReadExif(const ExifTool& exifTool, const BatchRequest& request);

// Enough to tell what the sources are like, and few enough not to wait for a slow share.
inline constexpr std::size_t kVolumesLookedAt = 5;

// Whether one of the first kVolumesLookedAt paths lies on a volume that is not attached to this machine. A path whose
// volume cannot be told is passed over. Any thread.
[[nodiscard]] bool anyVolumeNotLocal(FileSystem& fileSystem, std::span<const std::string> paths);

}  // namespace vellomar::ExifUtils
