#include "ui/duplicates/DuplicateGroupsModel.h"

#include <utility>

#include "platform/Path.h"
#include "platform/Text.h"
#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

// All paths of a group in lower case, each ended by a NUL so that nothing is found across two of them.
std::string searchablePaths(const DuplicateGroup& group) {
    std::string text = lowercased(group.canonical) + '\0';
    for (const auto& path : group.duplicates)
        text.append(lowercased(path)).push_back('\0');
    return text;
}

}  // namespace

DuplicateGroupsModel::DuplicateGroupsModel(const PublishedState& state, QObject* parent)
    : QAbstractListModel(parent), state_(state) {}

void DuplicateGroupsModel::showAnew() {
    searchables_.clear();
    replaceRows(foundGroups());
}

void DuplicateGroupsModel::clear() {
    needle_.clear();
    searchables_ = {};
    replaceRows({});
}

void DuplicateGroupsModel::setSearchText(const QString& text) {
    needle_ = lowercased(text.toStdString());
    replaceRows(foundGroups());
}

std::optional<std::size_t> DuplicateGroupsModel::groupAt(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return rows_[static_cast<std::size_t>(row)];
}

int DuplicateGroupsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant DuplicateGroupsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto number = rows_[static_cast<std::size_t>(index.row())];
    // A view may ask for a row before it is told that the groups are gone.
    if (number >= state_.duplicateGroups.size()) return {};
    const auto& group = state_.duplicateGroups[number];
    switch (role) {
        case fileNameRole: return displayText(lastPathComponent(group.canonical));
        case copiesRole: return static_cast<int>(group.duplicates.size()) + 1;
        default: return {};
    }
}

QHash<int, QByteArray> DuplicateGroupsModel::roleNames() const {
    return {{fileNameRole, "fileName"}, {copiesRole, "copies"}};
}

void DuplicateGroupsModel::replaceRows(std::vector<std::size_t> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    emit countChanged();
}

std::vector<std::size_t> DuplicateGroupsModel::foundGroups() {
    if (!needle_.empty()) prepareSearch();
    std::vector<std::size_t> found;
    for (std::size_t number = 0; number < state_.duplicateGroups.size(); ++number)
        if (needle_.empty() || searchables_[number].find(needle_) != std::string::npos) found.push_back(number);
    return found;
}

void DuplicateGroupsModel::prepareSearch() {
    const auto& groups = state_.duplicateGroups;
    searchables_.reserve(groups.size());
    while (searchables_.size() < groups.size())
        searchables_.push_back(searchablePaths(groups[searchables_.size()]));
}

}  // namespace vellomar
