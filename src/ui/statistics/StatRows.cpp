#include "ui/statistics/StatRows.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "ui/components/TextFormatters.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

using Counts = std::map<std::string, int>;

int percentageOf(int count, int total) {
    constexpr std::int64_t kWhole = 100;
    return total == 0 ? 0 : static_cast<int>(count * kWhole / total);
}

// In the order of the keys.
std::vector<StatRow> rowsOf(const Counts& counts, int total) {
    int largest = 0;
    for (const auto& [key, count] : counts)
        largest = std::max(largest, count);
    std::vector<StatRow> rows;
    for (const auto& [key, count] : counts) {
        const double share = largest == 0 ? 0 : static_cast<double>(count) / largest;
        rows.push_back({displayText(key), count, percentageOf(count, total), share});
    }
    return rows;
}

std::vector<StatRow> byCount(std::vector<StatRow> rows) {
    std::ranges::stable_sort(rows, std::greater(), &StatRow::count);
    return rows;
}

std::vector<StatRow> withLeadingDot(std::vector<StatRow> rows) {
    for (auto& row : rows)
        row.label.prepend('.');
    return rows;
}

QString statWords(const char* text) {
    return QCoreApplication::translate("StatRows", text);
}

}  // namespace

std::vector<StatSection> statSections(const LibraryStats& stats) {
    const auto& theme = Theme::shared();
    const auto rows = [&stats](const Counts& counts) { return rowsOf(counts, stats.totalFiles); };
    return {{"calendar", statWords("BY YEAR"), theme.yellow, rows(stats.byYear)},
            {"camera", statWords("BY CAMERA"), theme.cameraBar, byCount(rows(stats.byCamera))},
            {"calendar.badge.clock", statWords("DATE SOURCE CONFIDENCE"), theme.success,
             byCount(rows(stats.dateSourceBreakdown))},
            {"doc", statWords("FILE TYPES"), theme.secondaryText, withLeadingDot(byCount(rows(stats.byExtension)))}};
}

}  // namespace vellomar
