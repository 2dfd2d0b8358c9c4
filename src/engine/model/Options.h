#pragma once

#include <string>

#include "engine/model/ConflictPolicy.h"
#include "engine/model/DuplicateAction.h"
#include "engine/model/NamingStyle.h"

namespace vellomar {

// The template of the custom naming style until the user writes another.
inline constexpr const char* kDefaultCustomFormat =
    "{YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{HH}{mm}{ss}_{original}.{ext}";

// The whole configuration of one run. The engine takes it by value when a run starts and never changes it. The values
// given here are those that the settings start with; the engine itself relies on none of them.
struct Options {
    bool dryRun = true;                      // plan only; no file is touched
    bool moveOriginalsWhenReliable = false;  // move instead of copy, but only files with a strong date
    bool parseMonthWords = true;             // month names in folder names count as evidence
    bool parseNameDates = true;              // counted by the estimate alone: names are always parsed
    bool useExifToolForImages = true;        // read the images' metadata in ExifTool batches
    bool useExifToolForVideo = true;         // read the videos' metadata in ExifTool batches
    ConflictPolicy conflictPolicy = ConflictPolicy::rename;
    bool computeHashForDuplicates = true;  // SHA-256 per file, for duplicate detection and undo entries
    NamingStyle namingStyle = NamingStyle::recommended;
    std::string customFormat = kDefaultCustomFormat;  // template of the custom style
    bool includeImages = true;
    bool includeVideos = false;
    bool includeOther = false;  // everything else that is not junk
    bool syncFSDates = false;   // set the copy's file dates to the decided date
    DuplicateAction duplicateAction = DuplicateAction::log;
    bool resumeFromManifest = false;  // skip the sources that the newest undo manifest names
    bool usePerceptualHash = false;   // report images that look alike
    int perceptualHashThreshold = 4;  // largest Hamming distance, in bits of 64, that counts as alike
    bool verifyAfterCopy = true;      // compare the SHA-256 of source and destination after a copy
    bool keepRawJpegPairs = true;     // find RAW and JPEG pairs and report them
    bool moveSidecars = true;         // copy sidecars beside their RAW file
    bool storageIsNetwork = false;    // give up every look at a file that costs a round trip
    bool convertHEICToJPEG = false;   // turn HEIC copies into JPEG
    bool stripGPS = false;            // remove the location from copies
    bool stripAllMetadata = false;    // remove all metadata from copies; wins over stripGPS

    bool operator==(const Options&) const = default;
};

}  // namespace vellomar
