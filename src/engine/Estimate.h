#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "engine/model/Options.h"
#include "engine/model/RunEstimate.h"
#include "platform/FileSystem.h"

namespace vellomar {

// What a run over `sources` will be about. A plain count of the regular files that lie there, hidden names and junk
// left out: what the run would keep of them makes no difference, nor does network storage. Sources are walked one by
// one, so that a file in two of them counts twice; one that cannot be listed is passed over, and so is a file that
// cannot be looked at. Holds no more in memory than a walk does, however many the files. Any thread.
//
// A walk over a slow share takes minutes. `abandon` is for those who will have no use for the result any more: it ends
// the count behind the call to the disk that is under way, and what comes back is of no meaning.
[[nodiscard]] RunEstimate estimateRun(FileSystem& fileSystem, const std::vector<std::string>& sources,
                                      const Options& options, const std::stop_token& abandon = {});

// The time that a run with `options` is expected to take over so many files and bytes.
[[nodiscard]] double estimatedSeconds(std::int64_t fileCount, std::int64_t totalBytes, const Options& options);

}  // namespace vellomar
