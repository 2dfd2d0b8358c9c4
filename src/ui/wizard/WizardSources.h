#pragma once

#include <QAbstractListModel>
#include <QString>
#include <set>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

namespace vellomar {

// The source folders as the wizard lists them. What is taken out here stays a source: the list tells what was chosen on
// this way through the wizard. Interface thread only.
class WizardSources : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the wizard")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { nameRole = Qt::UserRole + 1, pathRole, isMissingRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] int count() const { return static_cast<int>(paths_.size()); }

    // The first folder's path; empty without one.
    [[nodiscard]] std::string firstPath() const { return paths_.empty() ? std::string() : paths_.front(); }

    // Takes the place of all there are.
    void setPaths(std::vector<std::string> paths);

    // Appends a folder, unless one of that very path is there.
    void add(const std::string& path);
    Q_INVOKABLE void removeAt(int row);

    // Which of the folders are not to be found at present.
    void setMissing(std::set<std::string> paths);

signals:
    void countChanged();

private:
    std::vector<std::string> paths_;
    std::set<std::string> missing_;
};

}  // namespace vellomar
