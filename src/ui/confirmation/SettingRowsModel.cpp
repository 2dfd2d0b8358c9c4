#include "ui/confirmation/SettingRowsModel.h"

#include <algorithm>

namespace vellomar {

void SettingRowsModel::setRows(const std::vector<SettingRow>& rows) {
    removeKeysMissingIn(rows);
    int place = 0;
    for (const SettingRow& row : rows)
        put(place++, row);
}

void SettingRowsModel::removeKeysMissingIn(const std::vector<SettingRow>& rows) {
    for (int place = rowCount() - 1; place >= 0; --place) {
        const auto present = rows_.begin() + place;
        if (std::ranges::find(rows, present->key, &SettingRow::key) != rows.end()) continue;
        beginRemoveRows({}, place, place);
        rows_.erase(present);
        endRemoveRows();
    }
}

void SettingRowsModel::put(int row, const SettingRow& content) {
    const auto place = rows_.begin() + row;
    if (place == rows_.end() || place->key != content.key) {
        beginInsertRows({}, row, row);
        rows_.insert(place, content);
        endInsertRows();
    } else if (*place != content) {
        *place = content;
        emit dataChanged(index(row), index(row));
    }
}

int SettingRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant SettingRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const SettingRow& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case symbolRole: return row.symbol;
        case symbolColourRole: return row.symbolColour;
        case keyRole: return row.key;
        case valueRole: return row.value;
        default: return {};
    }
}

QHash<int, QByteArray> SettingRowsModel::roleNames() const {
    return {{symbolRole, "symbol"}, {symbolColourRole, "symbolColour"}, {keyRole, "key"}, {valueRole, "value"}};
}

}  // namespace vellomar
