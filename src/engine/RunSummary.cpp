#include "engine/RunSummary.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "engine/TextFormats.h"

namespace vellomar {
namespace {

constexpr std::size_t kRuleWidth = 43;
constexpr std::size_t kMostFileTypes = 10;

std::string rule(std::string_view stroke) {
    std::string line;
    for (std::size_t i = 0; i < kRuleWidth; ++i)
        line += stroke;
    return line;
}

std::vector<std::pair<std::string, int>> byCount(const std::map<std::string, int>& counts) {
    std::vector<std::pair<std::string, int>> sorted(counts.begin(), counts.end());
    std::ranges::stable_sort(sorted, std::greater<>(), &std::pair<std::string, int>::second);
    return sorted;
}

double perSecond(double amount, double elapsed) {
    return elapsed > 0 ? amount / elapsed : 0;
}

// A rate cut to a whole number. The shortest of runs can have a rate beyond all numbers.
std::int64_t wholeRate(double rate) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    return rate >= static_cast<double>(kMost) ? kMost : static_cast<std::int64_t>(rate);
}

void addFigures(std::vector<std::string>& lines, const RunSummary& summary) {
    const double throughput = perSecond(static_cast<double>(summary.bytes), summary.elapsed);
    const auto count = static_cast<std::int64_t>(summary.processed);
    const double rate = perSecond(static_cast<double>(summary.processed), summary.elapsed);
    lines.push_back(fmt::format("  Files processed:    {} of {}", summary.processed, summary.total));
    lines.push_back("  Total data:         " + formatBytes(summary.bytes));
    lines.push_back("  Elapsed time:       " + formatDuration(summary.elapsed));
    lines.push_back("  Avg throughput:     " + formatBytes(wholeRate(throughput)) + "/s");
    lines.push_back("  Avg file size:      " + formatBytes(count == 0 ? 0 : summary.bytes / count));
    lines.push_back(fmt::format("  Files/second:       {:.1f}", rate));
}

void addStorage(std::vector<std::string>& lines, bool storageIsNetwork) {
    if (!storageIsNetwork) {
        lines.emplace_back("  Storage mode:       Local");
        return;
    }
    lines.emplace_back("  Storage mode:       NAS (network)");
    lines.emplace_back("  Note: NAS throughput limited by per-file overhead,");
    lines.emplace_back("  metadata lookups, and SMB protocol latency.");
}

void addBreakdown(std::vector<std::string>& lines, const LibraryStats& stats) {
    if (stats.totalFiles < 1) return;
    lines.push_back(rule("─"));
    lines.emplace_back("  Date sources:");
    for (const auto& [source, count] : byCount(stats.dateSourceBreakdown))
        lines.push_back(fmt::format("    {}: {}", source, count));
    lines.emplace_back("  File types:");
    auto types = byCount(stats.byExtension);
    types.resize(std::min(types.size(), kMostFileTypes));
    for (const auto& [extension, count] : types)
        lines.push_back(fmt::format("    .{}: {}", extension, count));
}

}  // namespace

std::vector<std::string> summaryLines(const RunSummary& summary, const LibraryStats& stats) {
    std::vector<std::string> lines = {"", rule("═"), "  PERFORMANCE SUMMARY", rule("═")};
    addFigures(lines, summary);
    addStorage(lines, summary.storageIsNetwork);
    addBreakdown(lines, stats);
    if (summary.duplicates > 0) lines.push_back(fmt::format("  Duplicates found:   {}", summary.duplicates));
    if (summary.verifyFailures >= 1) lines.push_back(fmt::format("  Verify failures:    {}", summary.verifyFailures));
    lines.push_back(rule("═"));
    lines.emplace_back();
    return lines;
}

std::string notificationTitle(bool dryRun) {
    return dryRun ? "Vellomar – Dry Run Complete" : "Vellomar – Sort Complete";
}

std::string notificationBody(std::size_t fileCount) {
    return fmt::format("{} file{} processed.", fileCount, fileCount == 1 ? "" : "s");
}

}  // namespace vellomar
