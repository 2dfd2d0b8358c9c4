#include "ui/statistics/LibraryStatsModel.h"

#include <algorithm>
#include <utility>

#include "ui/components/TextFormatters.h"

namespace vellomar {
namespace {

StatRow noneRow() {
    return {QStringLiteral("—"), 0, 0, 0};
}

}  // namespace

LibraryStatsModel::LibraryStatsModel(const PublishedState& state, const EngineEvents& events, QObject* parent)
    : QAbstractListModel(parent), state_(state) {
    connect(&events, &EngineEvents::changed, this, &LibraryStatsModel::note);
}

void LibraryStatsModel::open() {
    if (!canOpen() || isOpen_) return;
    isOpen_ = true;
    replaceSections(statSections(state_.libraryStats));
    emit openChanged();
}

void LibraryStatsModel::dismiss() {
    if (!isOpen_) return;
    isOpen_ = false;
    emit openChanged();
    replaceSections({});
}

QStringList LibraryStatsModel::tileLabels() {
    return {tr("TOTAL FILES"), tr("TOTAL SIZE"), tr("DUPLICATES"), tr("CAMERAS")};
}

QStringList LibraryStatsModel::tileValues() const {
    const auto& stats = state_.libraryStats;
    return {QString::number(stats.totalFiles), byteCountText(stats.totalBytes), QString::number(stats.duplicateCount),
            QString::number(stats.byCamera.size())};
}

QString LibraryStatsModel::symbolOf(const QString& heading) const {
    const auto found = std::ranges::find(sections_, heading, &StatSection::heading);
    return found == sections_.end() ? QString() : found->symbol;
}

int LibraryStatsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

QVariant LibraryStatsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& place = places_[static_cast<std::size_t>(index.row())];
    const auto& section = sections_[place.section];
    const bool isNone = section.rows.empty();
    const auto row = isNone ? noneRow() : section.rows[place.row];
    switch (role) {
        case headingRole: return section.heading;
        case labelRole: return row.label;
        case isNoneRole: return isNone;
        case countRole: return row.count;
        case percentageRole: return row.percentage;
        case shareRole: return row.share;
        case barColourRole: return section.barColour;
        default: return {};
    }
}

QHash<int, QByteArray> LibraryStatsModel::roleNames() const {
    return {{headingRole, "heading"},       {labelRole, "label"}, {isNoneRole, "isNone"},      {countRole, "count"},
            {percentageRole, "percentage"}, {shareRole, "share"}, {barColourRole, "barColour"}};
}

void LibraryStatsModel::note(PublishedField field) {
    if (field != PublishedField::libraryStats) return;
    if (isOpen_) replaceSections(statSections(state_.libraryStats));
    emit statsChanged();
}

void LibraryStatsModel::replaceSections(std::vector<StatSection> sections) {
    beginResetModel();
    sections_ = std::move(sections);
    places_.clear();
    for (std::size_t section = 0; section < sections_.size(); ++section)
        for (std::size_t row = 0; row < std::max<std::size_t>(sections_[section].rows.size(), 1); ++row)
            places_.push_back({section, row});
    endResetModel();
}

}  // namespace vellomar
