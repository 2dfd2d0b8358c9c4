#pragma once

#include <QAbstractListModel>
#include <QString>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/model/PlanRow.h"

namespace vellomar {

// The values that the plan's rows have in one respect, in ascending order, with how many rows have each; some of them
// are selected. What is selected stays so when its rows are gone. Interface thread only.
class FilterColumn final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the plan")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectionChanged)

public:
    enum Role {
        valueRole = Qt::UserRole + 1,  // for reading
        rowsRole,                      // how many
        isSelectedRole,
    };

    // The value that a row offers; empty for none.
    using ValueOf = std::string_view (*)(const PlanRow&);

    explicit FilterColumn(ValueOf valueOf, QObject* parent = nullptr) : QAbstractListModel(parent), valueOf_(valueOf) {}

    void clearRows();
    void addRow(const PlanRow& row);

    Q_INVOKABLE void toggle(int place);
    Q_INVOKABLE void clearSelection();

    // Whether nothing is selected, or `value` is.
    [[nodiscard]] bool passes(std::string_view value) const;
    [[nodiscard]] std::size_t selected() const { return selected_.size(); }
    [[nodiscard]] bool hasSelection() const { return !selected_.empty(); }
    [[nodiscard]] int count() const { return rowCount(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void selectionChanged();

private:
    struct Entry {
        std::string value;
        int rows = 0;
    };

    ValueOf valueOf_;
    std::vector<Entry> entries_;  // by value
    std::set<std::string, std::less<>> selected_;
};

}  // namespace vellomar
