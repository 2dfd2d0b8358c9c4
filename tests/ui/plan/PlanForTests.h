#pragma once

#include <string>
#include <vector>

#include "engine/PublishedState.h"
#include "ui/main/EngineEvents.h"

namespace vellomar::testing {

// A published plan without an engine behind it.
class PublishedPlan {
public:
    void add(std::vector<PlanRow> rows) {
        const auto count = rows.size();
        for (auto& row : rows)
            state.previewRows.push_back(std::move(row));
        events.rowsAppended(count);
    }

    void clear() {
        state.previewRows.clear();
        events.fieldChanged(PublishedField::previewRows);
    }

    PublishedState state;
    EngineEvents events;
};

[[nodiscard]] inline PlanRow planRow(std::string source, std::string destination,
                                     std::string date = "2023-08-14 14:30:21", std::string camera = "X100V",
                                     std::string action = "") {
    PlanRow row;
    row.action = action.empty() ? "COPY->" + destination : std::move(action);
    row.source = std::move(source);
    row.destination = std::move(destination);
    row.resolvedDate = std::move(date);
    row.cameraModel = std::move(camera);
    return row;
}

}  // namespace vellomar::testing
