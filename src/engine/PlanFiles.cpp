#include "engine/PlanFiles.h"

#include <array>
#include <string_view>

#include "platform/AtomicWrite.h"

namespace vellomar {
namespace {

std::string planText(const std::vector<PlanRow>& rows, std::string_view quote) {
    std::string text = "source,destination,action,resolved_date,decision\n";
    for (const auto& row : rows) {
        std::string_view separator;
        for (const auto* field : {&row.source, &row.destination, &row.action, &row.resolvedDate, &row.decision}) {
            text.append(separator).append(quote).append(*field).append(quote);
            separator = ",";
        }
        text += '\n';
    }
    return text;
}

}  // namespace

std::string previewPlanText(const std::vector<PlanRow>& rows) {
    return planText(rows, "");
}

std::string exportedPlanText(const std::vector<PlanRow>& rows) {
    return planText(rows, "\"");
}

void writePreviewPlan(FileSystem& fileSystem, const std::vector<PlanRow>& rows, const std::string& path) {
    static_cast<void>(writeAtomically(fileSystem, path, previewPlanText(rows)));
}

void writeExportedPlan(FileSystem& fileSystem, const std::vector<PlanRow>& rows, const std::string& path) {
    static_cast<void>(writeAtomically(fileSystem, path, exportedPlanText(rows)));
}

}  // namespace vellomar
