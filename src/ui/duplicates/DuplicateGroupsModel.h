#pragma once

#include <QAbstractListModel>
#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"

namespace vellomar {

// The groups of duplicates, or those in which a text occurs, in the engine's order. It keeps no group but its number,
// and while it is searched all paths in lower case. Interface thread only.
class DuplicateGroupsModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the viewer")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        fileNameRole = Qt::UserRole + 1,  // of the one to keep, for reading
        copiesRole,                       // how many files, the one to keep included
    };

    // There are no rows until showAnew(). `state` must outlive this.
    explicit DuplicateGroupsModel(const PublishedState& state, QObject* parent = nullptr);

    // Takes notice of the groups that there are now.
    void showAnew();

    // No rows, nothing searched for and nothing kept.
    void clear();

    // Leaves those groups of which a path holds the text, upper or lower case; all of them for an empty one.
    void setSearchText(const QString& text);

    [[nodiscard]] int count() const { return rowCount(); }

    // Which of the engine's groups stands at a row; nothing where there is none.
    [[nodiscard]] std::optional<std::size_t> groupAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    void replaceRows(std::vector<std::size_t> rows);
    [[nodiscard]] std::vector<std::size_t> foundGroups();
    void prepareSearch();

    const PublishedState& state_;
    std::string needle_;                    // in lower case
    std::vector<std::string> searchables_;  // one a group; made when they are first searched
    std::vector<std::size_t> rows_;         // the groups' numbers among the engine's
};

}  // namespace vellomar
