#pragma once

#include <string>
#include <vector>

#include "engine/model/PlanRow.h"
#include "platform/FileSystem.h"

namespace vellomar {

// Names of the plan that a dry run leaves in the destination, and of the one that the user exports.
inline constexpr const char* kPreviewPlanName = "_preview_plan.csv";
inline constexpr const char* kExportedPlanName = "filesort_plan.csv";

// The rows as comma-separated text with a header line: fields as they are, without quotes and without escaping. A path
// with a comma makes a line with a field too many.
[[nodiscard]] std::string previewPlanText(const std::vector<PlanRow>& rows);

// As above with each field between double quotes; a quote inside a field stands as it is.
[[nodiscard]] std::string exportedPlanText(const std::vector<PlanRow>& rows);

// Puts the preview plan at `path`, whole or not at all. Tells nothing of a failure.
void writePreviewPlan(FileSystem& fileSystem, const std::vector<PlanRow>& rows, const std::string& path);

// Puts the exported plan at `path`, whole or not at all. Tells nothing of a failure.
void writeExportedPlan(FileSystem& fileSystem, const std::vector<PlanRow>& rows, const std::string& path);

}  // namespace vellomar
