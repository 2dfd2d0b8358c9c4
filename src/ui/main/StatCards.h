// The five numbers above the plan. Pure; any thread.
#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

#include "engine/PublishedState.h"
#include "engine/model/RunEstimate.h"

namespace vellomar {

struct StatCard {
    QString label;
    QString value;  // a dash where there is nothing to tell

    bool operator==(const StatCard&) const = default;
};

// In their order from the left. `skipped` is the number of published rows whose action begins "SKIP".
[[nodiscard]] std::vector<StatCard> statCards(const PublishedState& state, const std::optional<RunEstimate>& estimate,
                                              std::size_t skipped);

// What a finished run did, for the panel of the last run.
[[nodiscard]] std::vector<StatCard> lastRunCards(const PublishedState& state, std::size_t skipped);

// Whether a row of the plan counts as skipped.
[[nodiscard]] bool isSkipped(const PlanRow& row);

}  // namespace vellomar
