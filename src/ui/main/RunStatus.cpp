#include "ui/main/RunStatus.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ui/components/TextFormatters.h"
#include "ui/main/PipelineStage.h"
#include "ui/main/StatCards.h"

namespace vellomar {
namespace {

QStringList labelsOf(const std::vector<StatCard>& cards) {
    QStringList labels;
    for (const auto& card : cards)
        labels += card.label;
    return labels;
}

QStringList valuesOf(const std::vector<StatCard>& cards) {
    QStringList values;
    for (const auto& card : cards)
        values += card.value;
    return values;
}

}  // namespace

RunStatus::RunStatus(const PublishedState& state, const EngineEvents& events, QObject* parent)
    : QObject(parent), state_(state) {
    connect(&events, &EngineEvents::changed, this, &RunStatus::note);
    connect(&events, &EngineEvents::rowsAdded, this, &RunStatus::countRows);
}

QString RunStatus::statusText() const {
    return displayText(state_.statusText);
}

QString RunStatus::progressText() const {
    return state_.statusText.empty() ? tr("Ready") : statusText();
}

QString RunStatus::bottomText() const {
    if (!state_.statusText.empty()) return statusText();
    return state_.isRunning ? tr("Running...") : tr("Idle");
}

QString RunStatus::percentage() const {
    return percentageText(state_.progress);
}

int RunStatus::stage() const {
    return pipelineStage(state_.isRunning, state_.progress, state_.statusText);
}

QString RunStatus::processedText() const {
    return state_.bytesProcessed > 0 ? sizeText(state_.bytesProcessed) : QString();
}

QString RunStatus::speedText() const {
    if (state_.bytesProcessed <= 0 || state_.bytesPerSecond <= 0) return {};
    return sizeText(static_cast<std::int64_t>(state_.bytesPerSecond)) + QStringLiteral("/s");
}

QStringList RunStatus::cardLabels() const {
    return labelsOf(statCards(state_, estimate_, skipped_));
}

QStringList RunStatus::cardValues() const {
    return valuesOf(statCards(state_, estimate_, skipped_));
}

QStringList RunStatus::lastRunLabels() const {
    return labelsOf(lastRunCards(state_, skipped_));
}

QStringList RunStatus::lastRunValues() const {
    return valuesOf(lastRunCards(state_, skipped_));
}

void RunStatus::setEstimate(std::optional<RunEstimate> estimate) {
    estimate_ = estimate;
    emit changed();
}

void RunStatus::note(PublishedField field) {
    if (field == PublishedField::previewRows) {
        skipped_ = 0;
        countRows(static_cast<int>(state_.previewRows.size()));
    }
    if (field == PublishedField::isRunning && state_.isRunning) hasRun_ = true;
    if (field != PublishedField::logLines) emit changed();
}

void RunStatus::countRows(int count) {
    const auto added = std::count_if(state_.previewRows.end() - count, state_.previewRows.end(), isSkipped);
    skipped_ += static_cast<std::size_t>(added);
    if (added > 0) emit changed();
}

}  // namespace vellomar
