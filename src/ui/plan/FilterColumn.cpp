#include "ui/plan/FilterColumn.h"

#include <algorithm>

#include "ui/components/TextFormatters.h"

namespace vellomar {

void FilterColumn::clearRows() {
    beginResetModel();
    entries_.clear();
    endResetModel();
    emit countChanged();
}

void FilterColumn::addRow(const PlanRow& row) {
    const auto value = valueOf_(row);
    if (value.empty()) return;
    const auto found = std::ranges::lower_bound(entries_, value, {}, &Entry::value);
    const auto place = static_cast<int>(found - entries_.begin());
    if (found != entries_.end() && found->value == value) {
        ++found->rows;
        emit dataChanged(index(place), index(place), {rowsRole});
        return;
    }
    beginInsertRows({}, place, place);
    entries_.insert(found, {std::string(value), 1});
    endInsertRows();
    emit countChanged();
}

void FilterColumn::toggle(int place) {
    if (place < 0 || place >= rowCount()) return;
    const auto& value = entries_[static_cast<std::size_t>(place)].value;
    if (selected_.erase(value) == 0) selected_.insert(value);
    emit dataChanged(index(place), index(place), {isSelectedRole});
    emit selectionChanged();
}

void FilterColumn::clearSelection() {
    if (selected_.empty()) return;
    selected_.clear();
    if (!entries_.empty()) emit dataChanged(index(0), index(rowCount() - 1), {isSelectedRole});
    emit selectionChanged();
}

bool FilterColumn::passes(std::string_view value) const {
    return selected_.empty() || selected_.contains(value);
}

int FilterColumn::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant FilterColumn::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case valueRole: return displayText(entry.value);
        case rowsRole: return entry.rows;
        case isSelectedRole: return selected_.contains(entry.value);
        default: return {};
    }
}

QHash<int, QByteArray> FilterColumn::roleNames() const {
    return {{valueRole, "value"}, {rowsRole, "rows"}, {isSelectedRole, "isSelected"}};
}

}  // namespace vellomar
