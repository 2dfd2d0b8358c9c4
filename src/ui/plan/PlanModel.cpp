#include "ui/plan/PlanModel.h"

#include <QColor>

#include "platform/Path.h"
#include "ui/components/TextFormatters.h"
#include "ui/plan/ActionColours.h"
#include "ui/plan/PlanValues.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {

PlanModel::PlanModel(const PublishedState& state, const EngineEvents& events, const PlanFilters* filters,
                     QObject* parent)
    : QAbstractListModel(parent), state_(state), filters_(filters) {
    connect(&events, &EngineEvents::rowsAdded, this, [this](int count) { addRows(static_cast<std::size_t>(count)); });
    connect(&events, &EngineEvents::changed, this, &PlanModel::note);
    if (filters_ != nullptr) connect(filters_, &PlanFilters::changed, this, &PlanModel::showAnew);
    showAnew();
}

const PlanRow* PlanModel::row(int place) const {
    if (place < 0 || place >= rowCount()) return nullptr;
    return &state_.previewRows[shown_[static_cast<std::size_t>(place)].row];
}

int PlanModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& shown = shown_[static_cast<std::size_t>(index.row())];
    // A view may ask for a row while it is told that the rows are gone.
    if (shown.row >= state_.previewRows.size()) return {};
    const auto& row = state_.previewRows[shown.row];
    switch (role) {
        case fileNameRole: return displayText(lastPathComponent(row.source));
        case sourceFolderRole: return displayText(parentPath(row.source));
        case shortSourceRole: return shortPath(row.source);
        case destinationRole: return displayText(row.destination);
        case shortDestinationRole: return shortPath(row.destination);
        case cameraRole: return displayText(row.cameraModel);
        case actionRole: return displayText(row.action);
        case badgeFillRole: return actionColours(row.action).fill;
        case badgeTextRole: return actionColours(row.action).text;
        case badgeEdgeRole: return actionColours(row.action).edge;
        case dateRole: return displayText(row.resolvedDate);
        case isDupRole: return isDuplicate(row);
        case beginsEventRole: return shown.beginsEvent;
        case thumbnailRole: return thumbnailAddress(row.source);
        default: return {};
    }
}

QHash<int, QByteArray> PlanModel::roleNames() const {
    return {{fileNameRole, "fileName"},
            {sourceFolderRole, "sourceFolder"},
            {shortSourceRole, "shortSource"},
            {destinationRole, "destination"},
            {shortDestinationRole, "shortDestination"},
            {cameraRole, "camera"},
            {actionRole, "action"},
            {badgeFillRole, "badgeFill"},
            {badgeTextRole, "badgeText"},
            {badgeEdgeRole, "badgeEdge"},
            {dateRole, "date"},
            {isDupRole, "isDup"},
            {beginsEventRole, "beginsEvent"},
            {thumbnailRole, "thumbnail"}};
}

void PlanModel::note(PublishedField field) {
    if (field == PublishedField::previewRows) showAnew();
    if (field == PublishedField::duplicateDestPaths && !shown_.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {isDupRole});
    if (field == PublishedField::duplicateDestPaths || field == PublishedField::previewRowsCapped ||
        field == PublishedField::totalFilesScanned || field == PublishedField::isRunning)
        emit stateChanged();
}

void PlanModel::addRows(std::size_t count) {
    const auto before = shown_.empty() ? std::nullopt : shown_.back().time;
    const auto added = shownFrom(state_.previewRows.size() - count, before);
    if (!added.empty()) {
        beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(added.size()) - 1);
        shown_.insert(shown_.end(), added.begin(), added.end());
        endInsertRows();
    }
    emit countChanged();
}

void PlanModel::showAnew() {
    beginResetModel();
    shown_ = shownFrom(0, std::nullopt);
    endResetModel();
    emit countChanged();
}

std::vector<PlanModel::Shown> PlanModel::shownFrom(std::size_t row, std::optional<std::int64_t> before) const {
    std::vector<Shown> shown;
    for (; row < state_.previewRows.size(); ++row) {
        if (filters_ != nullptr && !filters_->passes(row)) continue;
        const auto time = eventTime(state_.previewRows[row].resolvedDate);
        shown.push_back({row, time, beginsEvent(before, time)});
        before = time;
    }
    return shown;
}

}  // namespace vellomar
