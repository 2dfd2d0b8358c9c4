// The central question about a file: when was it shot, how far can that be trusted, and where does the file go.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dates/CameraModel.h"
#include "dates/CandidateGathering.h"
#include "dates/FolderEvidence.h"
#include "dates/MetadataReader.h"
#include "dates/SiblingYear.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/Options.h"
#include "naming/FolderRenameRule.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/UserDefaults.h"

namespace vellomar {

// What decisions ask of their surroundings. All must outlive the calls.
struct DecisionContext {
    FileSystem& fileSystem;
    const Clock& clock;
    const UserDefaults& userDefaults;
    MetadataReader* metadataReader = nullptr;  // null: no embedded metadata is read and no neighbour lends its year
    FolderEvidenceCache& folderEvidence;       // shared by the files of a run, whatever their order
    SiblingYears& siblingYears;                // likewise
};

// One file, and what the run knows. All must outlive the call.
struct DecisionRequest {
    const std::string& path;        // absolute
    const std::string& sourceRoot;  // the source folder under which the file was found, without a slash at its end
    const std::string& dest;        // the destination's root, absolute
    const Options& options;
    const ExifDates& exifDates;      // empty when ExifTool was not used
    const ExifCameras& exifCameras;  // likewise
    const std::vector<FolderRenameRule>& rules;
    bool mayHaveDuplicate = true;  // false if no other file can be equal, so that a digest would be wasted
};

// The folders between a source and its file, as a relative path; empty for a file straight in the source. Every
// occurrence of the source's path text goes, wherever it stands in `path`, and slashes of both kinds are trimmed from
// both ends before the file's name is cut off. Pure; any thread.
[[nodiscard]] std::string relativeFolderOf(std::string_view path, std::string_view sourceRoot);

// Gathers every dated clue, checks the clues against each other, believes the best one, and finds the destination.
// There is always an answer: a file that cannot be read or bears no date ends as "Fallback Now", which is not strong.
// Touches no file; on network storage it opens none either, but for the digest of a real run.
//
// DecisionResult::decision reads, with nothing escaped and its fields always there, in this order:
//
//   kind=Filename; strong=Y; date=2023-08-14 14:30:21; first='Vacation'; tail='Vacation\Day 1'; dest='/Lib/…/a.jpg'
//
// DecisionResult::decisionLog is what candidatesText() makes of the candidates that passed as possible dates.
//
// The digest is taken where the options ask for it, in the calling thread: a run's own thread has given up its priority
// already and would only wait for another. Blocks for the reads of the metadata reader, the listing of a folder and
// the digest. The thread of the metadata reader and of the cache.
[[nodiscard]] DecisionResult decideFile(const DecisionContext& context, const DecisionRequest& request);

}  // namespace vellomar
