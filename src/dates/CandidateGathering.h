#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dates/DateCandidate.h"
#include "dates/ExifMaps.h"
#include "dates/FolderDates.h"
#include "dates/MetadataReader.h"
#include "engine/model/FileKind.h"
#include "engine/model/Options.h"
#include "platform/FileSystem.h"

namespace vellomar {

// Where candidates come from. All must outlive the call.
struct CandidateSources {
    FileSystem& fileSystem;
    MetadataReader* metadataReader;  // null: no embedded metadata and no sidecar is read
    const ExifDates& exifDates;
    const Options& options;
};

// Noon of the day that stands for a whole year, June 15, or for a month, its 15th. Local time; nothing where the
// calendar of the zone leaves that noon out. Any thread.
[[nodiscard]] std::optional<Instant> middleOf(const FolderYearMonth& yearMonth);

// Every dated clue to the file at `path`, in the order that later decides between equals:
//
//   image: its sidecar, ExifTool's date, its own metadata;  video: ExifTool's date, its own metadata
//   its name
//   its folders: `folder` is what their names say, if anything
//   its creation date, then its modification date
//
// Embedded metadata of an image scores 95, a folder's month 40 and its year 35, a creation date 15 and a modification
// date 20. File dates more than 180 days apart have been scrambled by a copy and score 5 each. On network storage
// nothing is opened or looked at: ExifTool's date, name and folder remain. What cannot be read is left out in silence.
// `now` tells which numbers in a name can be a time stamp. The thread of the metadata reader.
[[nodiscard]] std::vector<DateCandidate> gatherDateCandidates(const CandidateSources& sources, const std::string& path,
                                                              FileKind kind,
                                                              const std::optional<FolderYearMonth>& folder,
                                                              Instant now);

}  // namespace vellomar
