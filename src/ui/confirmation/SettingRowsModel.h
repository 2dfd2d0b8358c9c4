#pragma once

#include <QAbstractListModel>
#include <vector>

#include "ui/confirmation/ConfirmationRows.h"

namespace vellomar {

// "YOUR CURRENT SETTINGS" as a list, one row a setting.
class SettingRowsModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { symbolRole = Qt::UserRole + 1, symbolColourRole, keyRole, valueRole };

    using QAbstractListModel::QAbstractListModel;

    // Rows with a key that is there already stay and are changed where they differ, so that what is shown does not
    // jump. Keys must be unique, and those that stay in one order.
    void setRows(const std::vector<SettingRow>& rows);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void removeKeysMissingIn(const std::vector<SettingRow>& rows);
    void put(int row, const SettingRow& content);

    std::vector<SettingRow> rows_;
};

}  // namespace vellomar
