#include "ui/main/StatCards.h"

#include <QCoreApplication>
#include <string_view>

#include "engine/TextFormats.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

const QString kNothing = QStringLiteral("—");

QString cardWords(const char* text) {
    return QCoreApplication::translate("StatCards", text);
}

template <typename Number>
QString countText(Number count) {
    return count == 0 ? kNothing : QString::number(count);
}

QString totalFiles(const PublishedState& state, const std::optional<RunEstimate>& estimate) {
    if (!estimate) return state.isRunning ? QString::number(state.totalFilesScanned) : kNothing;
    const auto expected = QString::number(estimate->fileCount);
    return state.isRunning ? QString::number(state.totalFilesScanned) + " / " + expected : expected;
}

// The time left stands at the end of the status.
QString timeLeft(std::string_view statusText) {
    constexpr std::string_view kMark = "ETA ";
    const auto mark = statusText.find(kMark);
    return mark == std::string_view::npos ? kNothing : displayText(statusText.substr(mark + kMark.size()));
}

StatCard timeCard(const PublishedState& state, const std::optional<RunEstimate>& estimate) {
    if (state.isRunning) return {cardWords("ETA"), timeLeft(state.statusText)};
    return {cardWords("Est. time"),
            estimate ? QString::fromStdString(formatDuration(estimate->estimatedSeconds)) : kNothing};
}

}  // namespace

std::vector<StatCard> statCards(const PublishedState& state, const std::optional<RunEstimate>& estimate,
                                std::size_t skipped) {
    return {{cardWords("Total files"), totalFiles(state, estimate)},
            {cardWords("Total size"), estimate ? sizeText(estimate->totalBytes) : kNothing},
            {cardWords("Skipped"), countText(skipped)},
            {cardWords("Duplicates"), countText(state.duplicateDestPaths.size())},
            timeCard(state, estimate)};
}

std::vector<StatCard> lastRunCards(const PublishedState& state, std::size_t skipped) {
    return {{cardWords("Files Sorted"), countText(state.totalFilesScanned)},
            {cardWords("Errors"), countText(state.verifyFailures)},
            {cardWords("Duplicates"), countText(state.duplicateDestPaths.size())},
            {cardWords("Skipped"), countText(skipped)}};
}

bool isSkipped(const PlanRow& row) {
    return row.action.starts_with("SKIP");
}

}  // namespace vellomar
