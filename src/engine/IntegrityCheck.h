#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "engine/model/IntegrityReport.h"
#include "engine/model/Options.h"
#include "engine/model/TaggedFile.h"
#include "platform/FileSystem.h"

namespace vellomar {

// Bytes that are free at `dest`. Nothing where that cannot be told: nothing stands there, the volume has no notion of
// space, or it tells of less than one byte. A volume that is full to the last block is thus one that says nothing.
[[nodiscard]] std::optional<std::int64_t> availableCapacity(FileSystem& fileSystem, const std::string& dest);

// What the check looks at. Must outlive the call.
struct IntegritySubject {
    const std::vector<TaggedFile>& files;  // in scan order; their sizes as the scan read them
    std::int64_t bytesMeasured;            // the room that the run is taken to need
    const std::string& dest;
};

// A quick look before a run, at 20 files however large the library: whether the first file's volume is read-only, which
// counts only if `options` move originals; whether the destination has less room than is needed; and which of the first
// 20 files are empty or cannot be read. Between these three steps it ends, with what it has found so far, if it has
// been asked to stop. A look that fails finds nothing. Any thread.
[[nodiscard]] IntegrityReport runIntegrityCheck(FileSystem& fileSystem, const IntegritySubject& subject,
                                                const Options& options, const std::stop_token& stop);

// What the log says of it, line by line.
[[nodiscard]] std::vector<std::string> integrityLines(const IntegrityReport& report);

}  // namespace vellomar
