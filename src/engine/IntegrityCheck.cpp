#include "engine/IntegrityCheck.h"

#include <algorithm>

#include <fmt/format.h>

#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr std::size_t kSampledFiles = 20;
constexpr std::size_t kMostUnreadableLines = 5;

bool isOnReadOnlyVolume(FileSystem& fileSystem, const std::vector<TaggedFile>& files) {
    return !files.empty() && fileSystem.volumeIsReadOnly(files.front().path).value_or(false);
}

bool lacksSpace(FileSystem& fileSystem, const IntegritySubject& subject) {
    const auto free = availableCapacity(fileSystem, subject.dest);
    return free && *free < subject.bytesMeasured;
}

void look(FileSystem& fileSystem, const TaggedFile& file, IntegrityReport& report) {
    if (file.size == 0)
        report.suspectedCorrupt.emplace_back(lastPathComponent(file.path));
    else if (!fileSystem.checkAccess(file.path, Access::read))
        report.unreadableFiles.push_back(file.path);
}

bool hasIssues(const IntegrityReport& report) {
    return !report.unreadableFiles.empty() || !report.suspectedCorrupt.empty() || report.readOnlySource ||
           report.insufficientSpace;
}

void addUnreadableLines(const std::vector<std::string>& files, std::vector<std::string>& lines) {
    const auto named = std::min(files.size(), kMostUnreadableLines);
    for (std::size_t i = 0; i < named; ++i)
        lines.push_back("  ✗ Unreadable: " + files[i]);
    if (files.size() > named) lines.push_back(fmt::format("  … and {} more unreadable files", files.size() - named));
}

}  // namespace

std::optional<std::int64_t> availableCapacity(FileSystem& fileSystem, const std::string& dest) {
    const auto bytes = fileSystem.availableBytes(dest);
    if (!bytes || *bytes < 1) return std::nullopt;
    return *bytes;
}

IntegrityReport runIntegrityCheck(FileSystem& fileSystem, const IntegritySubject& subject, const Options& options,
                                  const std::stop_token& stop) {
    const auto& files = subject.files;
    IntegrityReport report;
    report.totalScanned = static_cast<int>(files.size());
    report.readOnlySource = options.moveOriginalsWhenReliable && isOnReadOnlyVolume(fileSystem, files);
    if (stop.stop_requested()) return report;
    report.insufficientSpace = lacksSpace(fileSystem, subject);
    if (stop.stop_requested()) return report;
    for (std::size_t i = 0; i < std::min(files.size(), kSampledFiles); ++i)
        look(fileSystem, files[i], report);
    return report;
}

std::vector<std::string> integrityLines(const IntegrityReport& report) {
    if (!hasIssues(report)) return {fmt::format("✓ Integrity check passed — {} files OK", report.totalScanned)};
    std::vector<std::string> lines = {"⚠ Integrity issues found:"};
    if (report.readOnlySource) lines.emplace_back("  ✗ Source volume is read-only (safe for copy, not move)");
    if (report.insufficientSpace) lines.emplace_back("  ✗ Insufficient space on destination");
    for (const auto& name : report.suspectedCorrupt)
        lines.push_back("  ✗ Suspected corrupt: " + name);
    addUnreadableLines(report.unreadableFiles, lines);
    return lines;
}

}  // namespace vellomar
