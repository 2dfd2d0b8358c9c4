#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"
#include "ui/statistics/StatRows.h"

namespace vellomar {

// The statistics of the last run: the tiles, and the rows of all sections one below the other. A section without rows
// has one that says so. There are rows while the statistics are open. Interface thread only.
class LibraryStatsModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(bool canOpen READ canOpen NOTIFY statsChanged)
    Q_PROPERTY(QStringList tileLabels READ tileLabels CONSTANT)
    Q_PROPERTY(QStringList tileValues READ tileValues NOTIFY statsChanged)

public:
    enum Role {
        headingRole = Qt::UserRole + 1,  // of the row's section
        labelRole,                       // for reading
        isNoneRole,                      // whether it stands for a section without rows
        countRole,
        percentageRole,  // in whole numbers
        shareRole,       // from 0 to 1
        barColourRole,
    };

    // `state` must outlive this; `events` are of the engine that publishes it.
    LibraryStatsModel(const PublishedState& state, const EngineEvents& events, QObject* parent = nullptr);

    // Whether the last run counted any file. Once open, it stays so while the next run counts anew.
    [[nodiscard]] bool canOpen() const { return state_.libraryStats.totalFiles > 0; }
    [[nodiscard]] bool isOpen() const { return isOpen_; }

    Q_INVOKABLE void open();
    Q_INVOKABLE void dismiss();

    [[nodiscard]] static QStringList tileLabels();
    [[nodiscard]] QStringList tileValues() const;

    // The symbol of the section with this heading.
    [[nodiscard]] Q_INVOKABLE QString symbolOf(const QString& heading) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void openChanged();
    void statsChanged();

private:
    // Where a row's values stand.
    struct Place {
        std::size_t section = 0;
        std::size_t row = 0;
    };

    void note(PublishedField field);
    void replaceSections(std::vector<StatSection> sections);

    const PublishedState& state_;
    std::vector<StatSection> sections_;
    std::vector<Place> places_;  // one a row
    bool isOpen_ = false;
};

}  // namespace vellomar
