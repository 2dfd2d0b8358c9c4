#include "ui/options/OptionRowsModel.h"

#include <QCoreApplication>
#include <cstddef>
#include <string>

#include "settings/OptionSettings.h"
#include "ui/options/OptionSwitch.h"

namespace vellomar {
namespace {

QString rowWords(const char* text) {
    return QCoreApplication::translate("OptionRows", text);
}

}  // namespace

OptionRowsModel::OptionRowsModel(std::span<const OptionRow> rows, SettingsStore& settings, QObject* parent)
    : QAbstractListModel(parent), rows_(rows), settings_(settings) {
    connect(&settings_, &SettingsStore::changed, this, &OptionRowsModel::note);
}

int OptionRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant OptionRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto place = static_cast<std::size_t>(index.row());
    const auto& row = rows_[place];
    switch (role) {
        case sectionRole: return rowWords(row.section);
        case isFirstRole: return place == 0 || std::string_view(rows_[place - 1].section) != row.section;
        case labelRole: return rowWords(row.label);
        case subLabelRole: return rowWords(row.subLabel);
        case tooltipRole: return rowWords(row.tooltip);
        case isOnRole: return isOptionOn(settings_, row.key);
        case keyRole: return QString::fromLatin1(row.key.data(), static_cast<qsizetype>(row.key.size()));
        default: return {};
    }
}

QHash<int, QByteArray> OptionRowsModel::roleNames() const {
    return {{sectionRole, "section"}, {isFirstRole, "isFirst"}, {labelRole, "label"}, {subLabelRole, "subLabel"},
            {tooltipRole, "tooltip"}, {isOnRole, "isOn"},       {keyRole, "key"}};
}

void OptionRowsModel::note(const QString& key) {
    const auto name = key.toStdString();
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        if (rows_[place].key != name) continue;
        const auto changed = index(static_cast<int>(place));
        emit dataChanged(changed, changed, {isOnRole});
    }
}

}  // namespace vellomar
