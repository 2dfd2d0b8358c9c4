#include "ui/main/Banner.h"

#include <QCoreApplication>
#include <algorithm>
#include <filesystem>

#include "platform/Path.h"
#include "ui/components/TextFormatters.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

QString bannerWords(const char* text) {
    return QCoreApplication::translate("Banner", text);
}

std::string standardised(std::string_view path) {
    return withoutTrailingSlashes(std::filesystem::path(path).lexically_normal().native());
}

}  // namespace

bool isSameFolder(const std::vector<std::string>& sources, const std::string& dest) {
    if (dest.empty()) return false;
    const auto folder = standardised(dest);
    return std::ranges::any_of(sources, [&](const std::string& source) { return standardised(source) == folder; });
}

QString lowSpaceText(const std::string& dest, const std::optional<RunEstimate>& estimate,
                     std::optional<std::int64_t> free) {
    if (dest.empty() || !estimate || !free || *free >= estimate->totalBytes) return {};
    return bannerWords("Only %1 free — need %2").arg(sizeText(*free), sizeText(estimate->totalBytes));
}

std::optional<Banner> bannerFor(const PublishedState& state, bool isSameFolder, const QString& lowSpaceText) {
    const auto& theme = Theme::shared();
    const auto& report = state.integrityReport;
    if (isSameFolder)
        return Banner{"exclamationmark.triangle.fill", theme.alertRed,
                      bannerWords("Source and destination are the same folder.")};
    if (!report.unreadableFiles.empty())
        return Banner{"exclamationmark.shield.fill", theme.alertRed,
                      bannerWords("%1 unreadable file(s) detected. Check the log for details.")
                          .arg(report.unreadableFiles.size())};
    if (!report.suspectedCorrupt.empty())
        return Banner{
            "exclamationmark.triangle.fill", theme.alertOrange,
            bannerWords("%1 suspected corrupt file(s) (zero bytes). Check log.").arg(report.suspectedCorrupt.size())};
    if (state.verifyFailures > 0)
        return Banner{
            "xmark.shield.fill", theme.alertRed,
            bannerWords("%1 copy verification failure(s) — source files were kept safe.").arg(state.verifyFailures)};
    if (!lowSpaceText.isEmpty()) return Banner{"externaldrive.badge.exclamationmark", theme.yellow, lowSpaceText};
    if (report.totalScanned > 0)
        return Banner{"checkmark.shield.fill", theme.success,
                      bannerWords("%1 files passed integrity check.").arg(report.totalScanned)};
    return std::nullopt;
}

}  // namespace vellomar
