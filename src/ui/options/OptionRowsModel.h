#pragma once

#include <QAbstractListModel>
#include <span>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "settings/SettingsStore.h"
#include "ui/options/OptionRows.h"

namespace vellomar {

// The options of one tab and whether each is on. It follows the settings, whoever changes them; to change an option is
// not its business (see OptionsPanelModel). Interface thread only.
class OptionRowsModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")

public:
    enum Role {
        sectionRole = Qt::UserRole + 1,
        isFirstRole,  // of its section
        labelRole,
        subLabelRole,
        tooltipRole,
        isOnRole,
        keyRole,
    };

    // `rows` and `settings` must outlive this. Every row's option must be of those that are on or off.
    OptionRowsModel(std::span<const OptionRow> rows, SettingsStore& settings, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void note(const QString& key);

    std::span<const OptionRow> rows_;
    SettingsStore& settings_;
};

}  // namespace vellomar
