#include "ui/main/Notices.h"

#include <QVariant>
#include <algorithm>

namespace vellomar {

int Notices::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant Notices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& entry = entries_[index.row()];
    switch (role) {
        case textRole:
        case Qt::DisplayRole: return entry.text;
        case isNewsRole: return entry.kind == Kind::news;
        default: return {};
    }
}

QHash<int, QByteArray> Notices::roleNames() const {
    return {{textRole, "text"}, {isNewsRole, "isNews"}};
}

void Notices::tell(const QString& matter, const QString& text, Kind kind) {
    const auto found = std::ranges::find(entries_, matter, &Entry::matter);
    if (found != entries_.end()) removeAt(found - entries_.begin());
    if (text.isEmpty()) return;
    beginInsertRows({}, count(), count());
    entries_.append({matter, text, kind});
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
