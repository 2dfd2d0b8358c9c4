#pragma once

#include <QObject>
#include <memory>

#include <QtQml/qqmlregistration.h>

#include "engine/PublishedState.h"
#include "ui/inspector/Inspector.h"
#include "ui/main/EngineEvents.h"
#include "ui/plan/PlanFilters.h"
#include "ui/plan/PlanModel.h"

namespace vellomar {

// One view of the plan: its rows, and the inspector that explains one of them. Interface thread only.
class FilePlan final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the window")
    Q_PROPERTY(vellomar::PlanModel* rows READ rows CONSTANT)
    Q_PROPERTY(vellomar::PlanFilters* filters READ filters CONSTANT)
    Q_PROPERTY(vellomar::Inspector* inspector READ inspector CONSTANT)

public:
    enum class Shows { allRows, filteredRows };

    // `state` and what `surroundings` names must outlive this; `events` are of the engine that publishes `state`.
    FilePlan(Shows shows, const PublishedState& state, const EngineEvents& events,
             const Inspector::Surroundings& surroundings, QObject* parent = nullptr);

    [[nodiscard]] PlanModel* rows() { return &rows_; }

    // Null where all rows are shown.
    [[nodiscard]] PlanFilters* filters() { return filters_.get(); }

    [[nodiscard]] Inspector* inspector() { return &inspector_; }

    // Opens the inspector for the row at a place; nothing happens where there is none.
    Q_INVOKABLE void inspect(int row);

private:
    std::unique_ptr<PlanFilters> filters_;  // before the rows: it is to hear of new ones first
    PlanModel rows_;
    Inspector inspector_;
};

}  // namespace vellomar
