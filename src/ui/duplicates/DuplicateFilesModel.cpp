#include "ui/duplicates/DuplicateFilesModel.h"

#include <QPointer>
#include <memory>
#include <utility>

#include "platform/Path.h"
#include "ui/components/DateText.h"
#include "ui/components/TextFormatters.h"
#include "ui/thumbnails/ThumbnailAddress.h"

namespace vellomar {

DuplicateFilesModel::DuplicateFilesModel(Surroundings surroundings, const QLocale& locale, QObject* parent)
    : QAbstractListModel(parent), surroundings_(std::move(surroundings)), locale_(locale) {}

void DuplicateFilesModel::readSources() {
    sources_.clear();
    for (const auto& row : surroundings_.state.previewRows)
        sources_.emplace(row.destination, row.source);
}

void DuplicateFilesModel::clear() {
    setGroup(std::nullopt);
    sources_ = {};
}

void DuplicateFilesModel::setGroup(std::optional<std::size_t> group) {
    const auto& groups = surroundings_.state.duplicateGroups;
    beginResetModel();
    group_ = group && *group < groups.size() ? group : std::nullopt;
    files_ = group_ ? static_cast<int>(groups[*group_].duplicates.size()) + 1 : 0;
    looks_.clear();
    wanted_.clear();
    ++showing_;
    endResetModel();
    emit countChanged();
}

void DuplicateFilesModel::look(int row) {
    if (row < 0 || row >= files_ || looks_.contains(row)) return;
    wanted_.insert(row);
    lookAtNext();
}

void DuplicateFilesModel::lookAway(int row) {
    wanted_.erase(row);
}

void DuplicateFilesModel::lookAtNext() {
    if (isLooking_ || wanted_.empty()) return;
    isLooking_ = true;
    const int row = wanted_.extract(wanted_.begin()).value();
    const auto found = std::make_shared<std::optional<FoundFile>>();
    auto work = [found, places = placesOf(row), &fileSystem = surroundings_.fileSystem] {
        *found = firstFileAt(fileSystem, places);
    };
    auto then = [found, row, showing = showing_, model = QPointer(this)] {
        if (!model) return;
        model->isLooking_ = false;
        if (model->showing_ == showing) model->take(row, *found);
        model->lookAtNext();
    };
    surroundings_.runInBackground(std::move(work), std::move(then));
}

void DuplicateFilesModel::take(int row, const std::optional<FoundFile>& found) {
    looks_[row] = found;
    emit dataChanged(index(row), index(row), {sizeRole, modifiedRole, thumbnailRole, canRevealRole});
}

void DuplicateFilesModel::reveal(int row) {
    const auto places = placesOf(row);
    const auto path = std::make_shared<std::string>();
    auto work = [path, places, &fileSystem = surroundings_.fileSystem] {
        const auto found = firstFileAt(fileSystem, places);
        *path = found ? found->path : places.back();
    };
    auto then = [path, model = QPointer(this)] {
        if (model && !path->empty()) model->surroundings_.reveal.reveal(*path);
    };
    surroundings_.runInBackground(std::move(work), std::move(then));
}

int DuplicateFilesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : files_;
}

QVariant DuplicateFilesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const int row = index.row();
    const auto& destination = destinationAt(row);
    const auto* const found = foundAt(row);
    switch (role) {
        case headingRole: return row == 0 ? tr("KEEP") : tr("DUPLICATE %1").arg(row);
        case isKeptRole: return row == 0;
        case fileNameRole: return displayText(lastPathComponent(destination));
        case destinationRole: return displayText(destination);
        case sourceRole: return displayText(sourceOf(destination));
        case sizeRole: return found != nullptr ? byteCountText(found->size) : QString();
        case modifiedRole: return found != nullptr ? dateText(found->modified, locale_) : QString();
        case thumbnailRole: return found != nullptr ? thumbnailAddress(found->path) : QUrl();
        case canRevealRole: return canReveal(row);
        default: return {};
    }
}

QHash<int, QByteArray> DuplicateFilesModel::roleNames() const {
    return {{headingRole, "heading"},         {isKeptRole, "isKept"},       {fileNameRole, "fileName"},
            {destinationRole, "destination"}, {sourceRole, "source"},       {sizeRole, "size"},
            {modifiedRole, "modified"},       {thumbnailRole, "thumbnail"}, {canRevealRole, "canReveal"}};
}

// Empty where there is none: a view may ask for a row before it is told that the groups are gone.
const std::string& DuplicateFilesModel::destinationAt(int row) const {
    static const std::string kNone;
    const auto& groups = surroundings_.state.duplicateGroups;
    if (!group_ || *group_ >= groups.size() || row < 0) return kNone;
    const auto& group = groups[*group_];
    if (row == 0) return group.canonical;
    const auto place = static_cast<std::size_t>(row) - 1;
    return place < group.duplicates.size() ? group.duplicates[place] : kNone;
}

std::string DuplicateFilesModel::sourceOf(const std::string& destination) const {
    const auto found = sources_.find(destination);
    return found == sources_.end() ? std::string() : found->second;
}

std::vector<std::string> DuplicateFilesModel::placesOf(int row) const {
    const auto& destination = destinationAt(row);
    return {destination, sourceOf(destination)};
}

// Null for a file that is nowhere, and for one that was not looked for yet.
const FoundFile* DuplicateFilesModel::foundAt(int row) const {
    const auto look = looks_.find(row);
    return look == looks_.end() || !look->second ? nullptr : &*look->second;
}

bool DuplicateFilesModel::canReveal(int row) const {
    const bool isMissing = looks_.contains(row) && foundAt(row) == nullptr;
    return !isMissing || sources_.contains(destinationAt(row));
}

}  // namespace vellomar
