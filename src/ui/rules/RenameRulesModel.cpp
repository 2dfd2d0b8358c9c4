#include "ui/rules/RenameRulesModel.h"

#include <algorithm>
#include <cstddef>

#include "platform/Uuid.h"

namespace vellomar {

int RenameRulesModel::active() const {
    return static_cast<int>(std::ranges::count_if(rules_, &FolderRenameRule::isEnabled));
}

bool RenameRulesModel::addRule(const QString& matchText, const QString& replacement) {
    if (matchText.isEmpty() || replacement.isEmpty()) return false;
    beginInsertRows({}, rowCount(), rowCount());
    rules_.push_back({.id = Uuid::random(),
                      .matchText = matchText.toStdString(),
                      .replacement = replacement.toStdString(),
                      .isEnabled = true});
    endInsertRows();
    emit changed();
    return true;
}

void RenameRulesModel::setEnabled(int row, bool isEnabled) {
    if (!isRow(row)) return;
    rules_[static_cast<std::size_t>(row)].isEnabled = isEnabled;
    emit dataChanged(index(row), index(row), {isEnabledRole});
    emit changed();
}

void RenameRulesModel::deleteRule(int row) {
    if (!isRow(row)) return;
    beginRemoveRows({}, row, row);
    rules_.erase(rules_.begin() + row);
    endRemoveRows();
    emit changed();
}

int RenameRulesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rules_.size());
}

QVariant RenameRulesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto& rule = rules_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case matchTextRole: return QString::fromStdString(rule.matchText).simplified();
        case replacementRole: return QString::fromStdString(rule.replacement).simplified();
        case isEnabledRole: return rule.isEnabled;
        default: return {};
    }
}

QHash<int, QByteArray> RenameRulesModel::roleNames() const {
    return {{matchTextRole, "matchText"}, {replacementRole, "replacement"}, {isEnabledRole, "isEnabled"}};
}

void RenameRulesModel::setOpen(bool isOpen) {
    isOpen_ = isOpen;
    emit openChanged();
}

}  // namespace vellomar
