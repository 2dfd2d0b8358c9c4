#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dates/DateCandidate.h"
#include "platform/Instant.h"

namespace vellomar {

// A date from an image's own metadata, and the label of where it stood.
struct ImageEXIFResult {
    Instant date;
    std::string reason;

    bool operator==(const ImageEXIFResult&) const = default;
};

// What a single file and its sidecar say about themselves. Every failure is an absent value; nothing throws or logs.
// One thread at a time.
class MetadataReader {
public:
    virtual ~MetadataReader() = default;

    // From the XMP file beside an image.
    [[nodiscard]] virtual std::optional<DateCandidate> sidecarCandidate(const std::string& path) = 0;

    [[nodiscard]] virtual std::optional<ImageEXIFResult> readImageDate(const std::string& path) = 0;

    [[nodiscard]] virtual std::optional<DateCandidate> readVideoDate(const std::string& path) = 0;

    // Make and model in one text.
    [[nodiscard]] virtual std::optional<std::string> readImageCamera(const std::string& path) = 0;
};

// Where a run gets its reader.
class MetadataReaders {
public:
    virtual ~MetadataReaders() = default;

    // A reader for one run, to be used and destroyed on its thread; null where no file is to be opened for its dates.
    [[nodiscard]] virtual std::unique_ptr<MetadataReader> open() = 0;
};

}  // namespace vellomar
