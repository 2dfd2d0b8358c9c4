#pragma once

#include <QAbstractListModel>
#include <QString>
#include <set>
#include <string>

#include <QtQml/qqmlregistration.h>

#include "settings/SourceList.h"

namespace vellomar {

// The source folders as the window lists them. Interface thread only.
class SourcesModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { nameRole = Qt::UserRole, shortPathRole, pathRole, isMissingRole };

    // The list must outlive this, and be changed through this alone.
    explicit SourcesModel(SourceList& sources, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] int count() const { return static_cast<int>(sources_.entries().size()); }

    void load();

    // False, and no change, if a folder of that very path is there.
    bool add(const std::string& path);
    void removeAt(int row);
    void clear();

    // Which of the folders are not to be found at present.
    void setMissing(std::set<std::string> paths);
    [[nodiscard]] const std::set<std::string>& missing() const { return missing_; }

signals:
    void countChanged();

private:
    SourceList& sources_;
    std::set<std::string> missing_;
};

}  // namespace vellomar
