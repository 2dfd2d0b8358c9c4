#include "ui/main/Notices.h"

#include <QVariant>
#include <algorithm>

namespace vellomar {

int Notices::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant Notices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role != textRole && role != Qt::DisplayRole) return {};
    return entries_[index.row()].text;
}

QHash<int, QByteArray> Notices::roleNames() const {
    return {{textRole, "text"}};
}

void Notices::tell(const QString& matter, const QString& text) {
    const auto found = std::ranges::find(entries_, matter, &Entry::matter);
    if (found != entries_.end()) removeAt(found - entries_.begin());
    if (text.isEmpty()) return;
    beginInsertRows({}, count(), count());
    entries_.append({matter, text});
    endInsertRows();
    emit countChanged();
}

void Notices::dismiss(int row) {
    if (row >= 0 && row < count()) removeAt(row);
}

void Notices::removeAt(qsizetype row) {
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
    entries_.removeAt(row);
    endRemoveRows();
    emit countChanged();
}

}  // namespace vellomar
