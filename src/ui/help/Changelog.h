#pragma once

#include <QAbstractListModel>
#include <QVariantList>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// All releases, one a row and the newest first, and whether their sheet is open. Interface thread only.
class Changelog : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)

public:
    enum Role {
        versionRole = Qt::UserRole + 1,
        dateRole,
        isCurrentRole,  // whether it is the one that runs
        changesRole,    // maps of "category" and "items", a list of texts
    };

    explicit Changelog(QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    Q_INVOKABLE void open() { setOpen(true); }
    Q_INVOKABLE void dismiss() { setOpen(false); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void openChanged();

private:
    void setOpen(bool isOpen);

    const QVariantList releases_;  // maps, as they are compiled in
    bool isOpen_ = false;
};

}  // namespace vellomar
