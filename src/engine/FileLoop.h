#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dates/FolderEvidence.h"
#include "dates/MetadataReader.h"
#include "dates/SiblingYear.h"
#include "engine/FileTransfer.h"
#include "engine/RunContext.h"
#include "engine/RunProgress.h"
#include "engine/SizeCensus.h"
#include "engine/model/DecisionResult.h"
#include "engine/model/PlanRow.h"
#include "naming/FolderRenameRule.h"
#include "platform/decoder/PixelDecoder.h"

namespace vellomar {

// The heart of a run: takes the scanned files one at a time, in scan order, decides each, enters it into the plan and
// the statistics, and, in a real run, brings it to its destination. Ends before the next file when the run is
// cancelled. On the run's thread.
class FileLoop {
public:
    FileLoop(const RunContext& context, RunState& state, std::vector<FolderRenameRule> rules);

    // All files, or as many as there is leave for; RunState tells how many and whether it was cancelled. All plan rows
    // are with the main actor on return.
    void run();

private:
    using DestinationEntry = std::pair<const std::string, PlacedFile>;

    void handle(const TaggedFile& file);
    [[nodiscard]] DecisionResult decide(const TaggedFile& file);
    // Enters the decided destination, or a free name where another file of this run has it already.
    [[nodiscard]] DestinationEntry& takeDestination(const DecisionResult& decision);
    void addToStatistics(const TaggedFile& file, const DecisionResult& decision);
    void addPlanRow(const TaggedFile& file, const DecisionResult& decision, const std::string& destination);
    void recordForDuplicates(const TaggedFile& file, DecisionResult& decision, DestinationEntry& entry);
    void hashPicture(const TaggedFile& file, std::string_view destination);
    void plan(const TaggedFile& file, const std::string& destination);
    void publishRows();
    void publishProgress(std::size_t count);

    [[nodiscard]] const Options& options() const { return context_.options(); }

    const RunContext& context_;
    RunState& state_;
    const std::vector<FolderRenameRule> renameRules_;
    const SizeCensus sizes_;
    const std::unique_ptr<MetadataReader> metadataReader_;
    FolderEvidenceCache folderEvidence_;
    SiblingYears siblingYears_;
    RunProgress progress_;
    PixelDecoder pixels_;
    FileTransfer transfer_;
    std::vector<PlanRow> pendingRows_;
};

}  // namespace vellomar
