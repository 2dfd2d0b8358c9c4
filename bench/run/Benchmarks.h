// The benchmarks. Each makes its corpus, measures, and removes what it made.
#pragma once

#include <vector>

#include "run/Arguments.h"
#include "run/Report.h"

namespace vellomar::bench {

// Over a library of empty files: the scan and the estimate against the bare walk, and the engine's own work a file
// beyond the scan, in CPU time and memory, and how both grow with the library.
[[nodiscard]] std::vector<Result> benchmarkScan(const Arguments& arguments);
[[nodiscard]] std::vector<Result> benchmarkEstimate(const Arguments& arguments);
[[nodiscard]] std::vector<Result> benchmarkPlan(const Arguments& arguments);

// A verified run with digests against the bare copy: of photos, and of files so small that calls count, not bytes.
[[nodiscard]] std::vector<Result> benchmarkCopyOfPhotos(const Arguments& arguments);
[[nodiscard]] std::vector<Result> benchmarkCopyOfSmallFiles(const Arguments& arguments);

// The digest of one large file against the bare loop.
[[nodiscard]] std::vector<Result> benchmarkDigest(const Arguments& arguments);

// What it gains that files without a twin in size are not read in the search for duplicates.
[[nodiscard]] std::vector<Result> benchmarkDuplicates(const Arguments& arguments);

// What it costs to compare the perceptual hashes of all images of a library, at thresholds of different size.
[[nodiscard]] std::vector<Result> benchmarkNearDuplicates(const Arguments& arguments);

// ExifTool's batches over photos against ExifTool started bare; and reading the same photos by the decoder against a
// bare loop over the library; and what a request to the decoder costs beyond the reading.
[[nodiscard]] std::vector<Result> benchmarkMetadata(const Arguments& arguments);
[[nodiscard]] std::vector<Result> benchmarkReading(const Arguments& arguments);
[[nodiscard]] std::vector<Result> benchmarkRequests(const Arguments& arguments);

// The perceptual hash of pictures of 24 megapixels, the decoder's process included, against a bare program that decodes
// their luma.
[[nodiscard]] std::vector<Result> benchmarkPictures(const Arguments& arguments);

// What it costs to make a finder of places, and to find the place of a point where places are dense.
[[nodiscard]] std::vector<Result> benchmarkPlaces(const Arguments& arguments);

// Taking back a run of copies against digesting and removing them bare, and how the cost of an entry grows with their
// number.
[[nodiscard]] std::vector<Result> benchmarkUndo(const Arguments& arguments);

// The whole application with its window: how long its event loop hears nothing while it sorts, and how its memory grows
// with the number of files.
[[nodiscard]] std::vector<Result> benchmarkWindow(const Arguments& arguments);

// The plan's own window over 5,000 files: what a row costs, how soon a search shows what it finds, and what is left of
// the event loop and the memory while large pictures pass by.
[[nodiscard]] std::vector<Result> benchmarkPlanWindow(const Arguments& arguments);

// `count` files of a corpus at full size, at the size that `arguments` ask for; not less than `least`.
[[nodiscard]] std::size_t scaled(const Arguments& arguments, std::size_t count, std::size_t least);

}  // namespace vellomar::bench
