#include "ui/plan/PlanFilters.h"

#include <cstddef>

#include "platform/Text.h"
#include "ui/plan/PlanValues.h"

namespace vellomar {

PlanFilters::PlanFilters(const PublishedState& state, const EngineEvents& events, QObject* parent)
    : QObject(parent), state_(state), cameras_(offeredCamera), years_(offeredYear), folders_(offeredFolder) {
    for (const auto* const column : {&cameras_, &years_, &folders_})
        connect(column, &FilterColumn::selectionChanged, this, &PlanFilters::changed);
    connect(&events, &EngineEvents::rowsAdded, this, [this](int count) { addRows(static_cast<std::size_t>(count)); });
    connect(&events, &EngineEvents::changed, this, [this](PublishedField field) {
        if (field == PublishedField::previewRows) startAnew();
    });
    startAnew();
}

void PlanFilters::setSearchText(const QString& text) {
    if (text == searchText_) return;
    searchText_ = text;
    needle_ = lowercased(text.toStdString());
    emit changed();
}

int PlanFilters::activeCount() const {
    return static_cast<int>(cameras_.selected() + years_.selected() + folders_.selected());
}

void PlanFilters::clear() {
    for (auto* const column : {&cameras_, &years_, &folders_})
        column->clearSelection();
}

bool PlanFilters::passes(std::size_t row) const {
    const auto& values = state_.previewRows[row];
    return cameras_.passes(values.cameraModel) && years_.passes(yearOf(values)) && folders_.passes(folderOf(values)) &&
           isFound(row);
}

bool PlanFilters::isFound(std::size_t row) const {
    if (needle_.empty()) return true;
    while (searchables_.size() <= row)
        searchables_.push_back(searchableText(state_.previewRows[searchables_.size()]));
    return searchables_[row].find(needle_) != std::string::npos;
}

void PlanFilters::addRows(std::size_t count) {
    const auto& rows = state_.previewRows;
    for (auto row = rows.size() - count; row < rows.size(); ++row)
        for (auto* const column : {&cameras_, &years_, &folders_})
            column->addRow(rows[row]);
}

void PlanFilters::startAnew() {
    searchables_.clear();
    for (auto* const column : {&cameras_, &years_, &folders_})
        column->clearRows();
    addRows(state_.previewRows.size());
}

}  // namespace vellomar
