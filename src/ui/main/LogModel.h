#pragma once

#include <QAbstractListModel>
#include <cstdint>
#include <deque>
#include <string>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"
#include "ui/main/LogLines.h"

namespace vellomar {

// The lines of the activity log that the selected tab shows. It keeps no line itself, so its memory is a number a line.
// Interface thread only.
class LogModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(int filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(int count READ shownCount NOTIFY countChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY linesChanged)

public:
    enum Role { lineRole = Qt::UserRole, colourRole, barColourRole };

    // `state` must outlive this; `events` are of the engine that publishes it.
    LogModel(const PublishedState& state, const EngineEvents& events, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // The tab, by its place in LogFilter.
    [[nodiscard]] int filter() const { return static_cast<int>(filter_); }
    void setFilter(int filter);

    [[nodiscard]] int shownCount() const { return static_cast<int>(shown_.size()); }

    // Whether the log has no line at all, whatever the tab.
    [[nodiscard]] bool isEmpty() const { return state_.logLines.empty(); }

    // All lines whatever the tab, as bytes, with a line feed between them.
    [[nodiscard]] std::string allText() const;

signals:
    void filterChanged();
    void countChanged();
    void linesChanged();

private:
    void append(int count);
    void drop(int count);
    void showAnew();
    [[nodiscard]] const std::string& line(std::uint64_t number) const;

    const PublishedState& state_;
    LogFilter filter_ = LogFilter::all;
    std::uint64_t firstNumber_ = 0;    // of the oldest line that the engine still has
    std::deque<std::uint64_t> shown_;  // numbers of the lines that are shown, oldest first
};

}  // namespace vellomar
