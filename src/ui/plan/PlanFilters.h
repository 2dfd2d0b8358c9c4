#pragma once

#include <QObject>
#include <QString>
#include <string>
#include <vector>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"
#include "ui/plan/FilterColumn.h"

namespace vellomar {

// What rows of the plan are looked for: a text that occurs somewhere in them, and values of which they have one in each
// respect. Interface thread only.
class PlanFilters final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the plan")
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY changed)
    Q_PROPERTY(int activeCount READ activeCount NOTIFY changed)
    Q_PROPERTY(vellomar::FilterColumn* cameras READ cameras CONSTANT)
    Q_PROPERTY(vellomar::FilterColumn* years READ years CONSTANT)
    Q_PROPERTY(vellomar::FilterColumn* folders READ folders CONSTANT)

public:
    // `state` must outlive this; `events` are of the engine that publishes it.
    PlanFilters(const PublishedState& state, const EngineEvents& events, QObject* parent = nullptr);

    [[nodiscard]] QString searchText() const { return searchText_; }
    void setSearchText(const QString& text);

    // How many values are selected, in all respects together. The search does not count.
    [[nodiscard]] int activeCount() const;

    // Selects no value any more; what is searched for stays.
    Q_INVOKABLE void clear();

    // Whether the row with this number among the engine's is one of those looked for.
    [[nodiscard]] bool passes(std::size_t row) const;

    [[nodiscard]] FilterColumn* cameras() { return &cameras_; }
    [[nodiscard]] FilterColumn* years() { return &years_; }
    [[nodiscard]] FilterColumn* folders() { return &folders_; }

signals:
    void changed();

private:
    void addRows(std::size_t count);
    void startAnew();
    [[nodiscard]] bool isFound(std::size_t row) const;

    const PublishedState& state_;
    QString searchText_;
    std::string needle_;                            // the same in lower case
    mutable std::vector<std::string> searchables_;  // of the first rows; made when they are first searched
    FilterColumn cameras_;
    FilterColumn years_;
    FilterColumn folders_;
};

}  // namespace vellomar
