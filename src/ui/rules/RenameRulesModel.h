#pragma once

#include <QAbstractListModel>
#include <QString>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "naming/FolderRenameRule.h"

namespace vellomar {

// The rules by which folders get better names, one a row in the order in which they are tried, and whether their sheet
// is open. They last until the program ends. Interface thread only.
class RenameRulesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int active READ active NOTIFY changed)

public:
    enum Role {
        matchTextRole = Qt::UserRole + 1,  // on one line, whatever it is, as is the next one
        replacementRole,
        isEnabledRole,
    };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const std::vector<FolderRenameRule>& rules() const { return rules_; }
    [[nodiscard]] int count() const { return rowCount(); }

    // How many of them are enabled.
    [[nodiscard]] int active() const;

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    Q_INVOKABLE void open() { setOpen(true); }
    Q_INVOKABLE void dismiss() { setOpen(false); }

    // Appends a rule, enabled. False, and no change, unless both texts are there.
    Q_INVOKABLE bool addRule(const QString& matchText, const QString& replacement);

    // A row that is none changes nothing.
    Q_INVOKABLE void setEnabled(int row, bool isEnabled);
    Q_INVOKABLE void deleteRule(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void openChanged();
    void changed();  // rules were added, deleted, enabled or disabled

private:
    void setOpen(bool isOpen);
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < rowCount(); }

    std::vector<FolderRenameRule> rules_;
    bool isOpen_ = false;
};

}  // namespace vellomar
