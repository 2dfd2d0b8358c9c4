#include "ui/presets/PresetsModel.h"

#include "settings/OptionSettings.h"
#include "ui/options/NamingStyles.h"
#include "ui/options/OptionLabels.h"

namespace vellomar {
namespace {

QString detailsOf(const Options& options) {
    return namingStyleLabel(options.namingStyle) + QStringLiteral(" · ") + conflictLabel(options.conflictPolicy);
}

}  // namespace

PresetsModel::PresetsModel(SettingsStore& settings, QObject* parent)
    : QAbstractListModel(parent), settings_(settings), list_(settings) {}

void PresetsModel::loadPresets() {
    beginResetModel();
    list_.loadPresets();
    endResetModel();
    emit countChanged();
}

bool PresetsModel::savePreset(const QString& name) {
    if (name.trimmed().isEmpty()) return false;
    beginInsertRows({}, rowCount(), rowCount());
    list_.savePreset(name.trimmed().toStdString(), buildOptions(settings_));
    endInsertRows();
    emit countChanged();
    return true;
}

void PresetsModel::applyPreset(int row) {
    if (!isRow(row)) return;
    list_.applyPreset(preset(row));
    dismiss();
}

void PresetsModel::deletePreset(int row) {
    if (!isRow(row)) return;
    beginRemoveRows({}, row, row);
    const auto id = preset(row).id;
    list_.deletePreset(id);
    endRemoveRows();
    emit countChanged();
}

int PresetsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.presets().size());
}

QVariant PresetsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto& shown = preset(index.row());
    switch (role) {
        case nameRole: return QString::fromStdString(shown.name).simplified();
        case detailsRole: return detailsOf(shown.options);
        default: return {};
    }
}

QHash<int, QByteArray> PresetsModel::roleNames() const {
    return {{nameRole, "name"}, {detailsRole, "details"}};
}

void PresetsModel::setOpen(bool isOpen) {
    isOpen_ = isOpen;
    emit openChanged();
}

}  // namespace vellomar
