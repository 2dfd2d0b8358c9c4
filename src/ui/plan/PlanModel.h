#pragma once

#include <QAbstractListModel>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"
#include "ui/plan/PlanFilters.h"

namespace vellomar {

// The rows of the plan, or those of them that are looked for, in the engine's order. It keeps no row itself, so its
// memory is some twenty bytes a row. Interface thread only.
class PlanModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the plan")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int total READ total NOTIFY countChanged)
    Q_PROPERTY(int duplicates READ duplicates NOTIFY stateChanged)
    Q_PROPERTY(bool isCapped READ isCapped NOTIFY stateChanged)
    Q_PROPERTY(int scanned READ scanned NOTIFY stateChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY stateChanged)

public:
    enum Role {
        fileNameRole = Qt::UserRole + 1,  // this and all other texts are for reading
        sourceFolderRole,
        shortSourceRole,
        destinationRole,
        shortDestinationRole,
        cameraRole,
        actionRole,
        badgeFillRole,
        badgeTextRole,
        badgeEdgeRole,
        dateRole,
        isDupRole,
        beginsEventRole,  // whether a divider stands above it
        thumbnailRole,    // where an image of the file is loaded from
    };

    // All rows, or with `filters` those that pass them. The others must outlive this; `events` are of the engine that
    // publishes `state`.
    PlanModel(const PublishedState& state, const EngineEvents& events, const PlanFilters* filters = nullptr,
              QObject* parent = nullptr);

    [[nodiscard]] int count() const { return rowCount(); }

    // How many rows there are, looked for or not.
    [[nodiscard]] int total() const { return static_cast<int>(state_.previewRows.size()); }

    // How many destinations are of duplicates.
    [[nodiscard]] int duplicates() const { return static_cast<int>(state_.duplicateDestPaths.size()); }

    // Whether the run has more files than rows are kept of, and how many files it has.
    [[nodiscard]] bool isCapped() const { return state_.previewRowsCapped; }
    [[nodiscard]] int scanned() const { return state_.totalFilesScanned; }
    [[nodiscard]] bool isRunning() const { return state_.isRunning; }

    // The row at a place; null where there is none.
    [[nodiscard]] const PlanRow* row(int place) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void stateChanged();

private:
    struct Shown {
        std::size_t row = 0;  // its number among the engine's
        std::optional<std::int64_t> time;
        bool beginsEvent = false;
    };

    void note(PublishedField field);
    void addRows(std::size_t count);
    void showAnew();
    [[nodiscard]] std::vector<Shown> shownFrom(std::size_t row, std::optional<std::int64_t> before) const;
    [[nodiscard]] bool isDuplicate(const PlanRow& row) const {
        return state_.duplicateDestPaths.contains(row.destination);
    }

    const PublishedState& state_;
    const PlanFilters* filters_;
    std::vector<Shown> shown_;
};

}  // namespace vellomar
