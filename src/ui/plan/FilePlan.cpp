#include "ui/plan/FilePlan.h"

namespace vellomar {

FilePlan::FilePlan(Shows shows, const PublishedState& state, const EngineEvents& events,
                   const Inspector::Surroundings& surroundings, QObject* parent)
    : QObject(parent),
      filters_(shows == Shows::filteredRows ? std::make_unique<PlanFilters>(state, events) : nullptr),
      rows_(state, events, filters_.get()),
      inspector_(surroundings) {}

void FilePlan::inspect(int row) {
    if (const auto* const shown = rows_.row(row)) inspector_.open(*shown);
}

}  // namespace vellomar
