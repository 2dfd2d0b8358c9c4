#include "ui/wizard/WizardSources.h"

#include <algorithm>
#include <utility>

#include "ui/components/TextFormatters.h"

namespace vellomar {

int WizardSources::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant WizardSources::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& path = paths_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case nameRole: return folderName(path);
        case pathRole: return displayText(path);
        case isMissingRole: return missing_.contains(path);
        default: return {};
    }
}

QHash<int, QByteArray> WizardSources::roleNames() const {
    return {{nameRole, "name"}, {pathRole, "path"}, {isMissingRole, "isMissing"}};
}

void WizardSources::setPaths(std::vector<std::string> paths) {
    beginResetModel();
    paths_ = std::move(paths);
    endResetModel();
    emit countChanged();
}

void WizardSources::add(const std::string& path) {
    if (std::ranges::find(paths_, path) != paths_.end()) return;
    beginInsertRows({}, count(), count());
    paths_.push_back(path);
    endInsertRows();
    emit countChanged();
}

void WizardSources::removeAt(int row) {
    if (row < 0 || row >= count()) return;
    beginRemoveRows({}, row, row);
    paths_.erase(paths_.begin() + row);
    endRemoveRows();
    emit countChanged();
}

void WizardSources::setMissing(std::set<std::string> paths) {
    if (paths == missing_) return;
    missing_ = std::move(paths);
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {isMissingRole});
}

}  // namespace vellomar
