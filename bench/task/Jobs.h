// The engine's jobs that are measured.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace vellomar::bench {

// Does one job and prints its measurement. `source` is a file or a folder; `dest` a folder that stands, empty text for
// jobs without one. Throws if the job does not end as it must.
using Job = std::function<void(const std::string& source, const std::string& dest)>;

// By name, the runs without looking into files, which is measured apart:
//
//   scan           scanSources() of everything below a folder
//   scan-network   the same as on network storage
//   estimate       estimateRun() of everything below a folder
//   plan-network   a dry run as on network storage: names alone, no digests
//   plan           a dry run, no digests
//   plan-hashed    a dry run with digests for the search for duplicates
//   copy           a real run, verified and with digests
//   digest         sha256OfFile() of one file
//   digest-all     sha256OfFile() of every file below a folder
//
// for a source that is a manifest:
//
//   undo           an undo of all its entries
//
// for a source that is a number of images, and a threshold in place of the folder:
//
//   near-duplicates   grouped() and findNearDuplicates() over random hashes
//
// for a source that is a number of rounds or of points:
//
//   load-places    a PlaceFinder of the compiled table, so many times
//   find-places    nearest() of so many points in Europe
//
// and, for a source that lists the paths of photos, one a line:
//
//   exiftool       batchReadExif() as a run asks for it
//   read           date and camera of each, read by the decoder
//   ask            what the decoder says of each, whatever that is
//   ask-here       the same, read within this process
//   hash-pictures  perceptualHash() of each
[[nodiscard]] const std::map<std::string_view, Job>& jobs();

}  // namespace vellomar::bench
