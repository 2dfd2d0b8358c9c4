#include "ui/main/SourcesModel.h"

#include <QVariant>
#include <cstddef>
#include <utility>

#include "ui/components/TextFormatters.h"

namespace vellomar {

SourcesModel::SourcesModel(SourceList& sources, QObject* parent) : QAbstractListModel(parent), sources_(sources) {}

int SourcesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant SourcesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& path = sources_.entries()[static_cast<std::size_t>(index.row())].path;
    switch (role) {
        case Qt::DisplayRole:
        case nameRole: return folderName(path);
        case shortPathRole: return shortPath(path);
        case pathRole: return displayText(path);
        case isMissingRole: return missing_.contains(path);
        default: return {};
    }
}

QHash<int, QByteArray> SourcesModel::roleNames() const {
    return {{nameRole, "name"}, {shortPathRole, "shortPath"}, {pathRole, "path"}, {isMissingRole, "isMissing"}};
}

void SourcesModel::load() {
    beginResetModel();
    sources_.loadSourceEntries();
    endResetModel();
    emit countChanged();
}

bool SourcesModel::add(const std::string& path) {
    if (sources_.contains(path)) return false;
    beginInsertRows({}, count(), count());
    sources_.add(path);
    endInsertRows();
    emit countChanged();
    return true;
}

void SourcesModel::removeAt(int row) {
    if (row < 0 || row >= count()) return;
    beginRemoveRows({}, row, row);
    sources_.removeAt(static_cast<std::size_t>(row));
    endRemoveRows();
    emit countChanged();
}

void SourcesModel::clear() {
    beginResetModel();
    sources_.clear();
    endResetModel();
    emit countChanged();
}

void SourcesModel::setMissing(std::set<std::string> paths) {
    if (paths == missing_) return;
    missing_ = std::move(paths);
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {isMissingRole});
}

}  // namespace vellomar
