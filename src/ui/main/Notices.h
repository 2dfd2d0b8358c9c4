#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStringList>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// Short messages across the window's top, until they are put away: about what is wrong around the program (settings
// that cannot be kept, a folder that was refused), or news of work that nothing else shows. Interface thread only.
class Notices : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { textRole = Qt::UserRole, isNewsRole };
    enum class Kind { problem, news };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return static_cast<int>(entries_.size()); }

    // One message about each matter: a later one replaces it, an empty one takes it away.
    void tell(const QString& matter, const QString& text, Kind kind = Kind::problem);

    Q_INVOKABLE void dismiss(int row);

signals:
    void countChanged();

private:
    struct Entry {
        QString matter;
        QString text;
        Kind kind = Kind::problem;
    };

    void removeAt(qsizetype row);

    QList<Entry> entries_;
};

}  // namespace vellomar
