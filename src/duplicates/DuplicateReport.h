#pragma once

#include <string>
#include <vector>

#include "duplicates/ExactDuplicates.h"

namespace vellomar {

inline constexpr const char* kDuplicatesReportName = "_duplicates_report.csv";

// One line for every duplicate below a header line: hash, canonical path, duplicate path. Every field between double
// quotes, a quote inside doubled; line feeds and bytes that are not UTF-8 as they are.
[[nodiscard]] std::string duplicatesReportText(const std::vector<ExactDuplicates>& groups);

}  // namespace vellomar
