#include "engine/Publication.h"

#include <algorithm>
#include <iterator>

namespace vellomar {

void Publication::resetPublishedState() {
    const bool isUnderWay = state_.isRunning;
    state_ = PublishedState{};
    state_.isRunning = isUnderWay;
    state_.statusText = "Scanning...";
    using enum PublishedField;
    for (const auto field : {previewRowsCapped, totalFilesScanned, progress, statusText, logLines, previewRows,
                             mediaBreakdown, duplicateDestPaths, duplicateGroups, libraryStats, integrityReport,
                             verifyFailures, rawJpegPairs, bytesProcessed, bytesPerSecond})
        notify(field);
}

void Publication::appendPreviewRows(std::vector<PlanRow> rows) {
    const std::size_t room = kMostPreviewRows - state_.previewRows.size();
    const std::size_t count = std::min(room, rows.size());
    std::move(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(count), std::back_inserter(state_.previewRows));
    if (count > 0 && observer_ != nullptr) observer_->rowsAppended(count);
    if (room == 0 || count < rows.size())
        set(PublishedField::previewRowsCapped, &PublishedState::previewRowsCapped, true);
}

void Publication::appendLogLines(std::vector<std::string> lines) {
    auto& published = state_.logLines;
    std::ranges::move(lines, std::back_inserter(published));
    if (observer_ != nullptr) observer_->linesAppended(lines.size());
    if (published.size() <= kMostLogLines) return;
    const std::size_t excess = published.size() - kMostLogLines;
    published.erase(published.begin(), published.begin() + static_cast<std::ptrdiff_t>(excess));
    if (observer_ != nullptr) observer_->linesDropped(excess);
}

}  // namespace vellomar
