#include "ui/confirmation/ConfirmationRows.h"

#include <QCoreApplication>
#include <QStringList>
#include <utility>

#include "engine/TextFormats.h"
#include "platform/Path.h"
#include "ui/components/TextFormatters.h"
#include "ui/options/NamingStyles.h"
#include "ui/options/OptionLabels.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

QString confirmationWords(const char* text) {
    return QCoreApplication::translate("ConfirmationRows", text);
}

QString sourceText(const std::vector<std::string>& sources) {
    if (sources.size() == 1) return folderName(sources.front());
    return confirmationWords("%1 folders").arg(sources.size());
}

QString filesText(const RunEstimate& estimate) {
    return confirmationWords("%1 files · %2").arg(estimate.fileCount).arg(byteCountText(estimate.totalBytes));
}

QString fileTypesText(const Options& options) {
    QStringList kinds;
    if (options.includeImages) kinds << confirmationWords("IMG");
    if (options.includeVideos) kinds << confirmationWords("VID");
    if (options.includeOther) kinds << confirmationWords("OTHER");
    return kinds.join(" + ");
}

// The rows one below the other.
class Rows {
public:
    void add(const char* symbol, const char* key, QString value) {
        add(symbol, Theme::shared().secondaryText, key, std::move(value));
    }

    void add(const char* symbol, const QColor& colour, const char* key, QString value) {
        rows_.push_back({symbol, colour, confirmationWords(key), std::move(value)});
    }

    [[nodiscard]] std::vector<SettingRow> take() { return std::move(rows_); }

private:
    std::vector<SettingRow> rows_;
};

void addEstimate(Rows& rows, const std::optional<RunEstimate>& estimate, MissingEstimate missingEstimate) {
    if (estimate) {
        rows.add("photo.on.rectangle", "Files to process", filesText(*estimate));
        rows.add("clock", "Estimated time", QString::fromStdString(formatDuration(estimate->estimatedSeconds)));
    } else if (missingEstimate == MissingEstimate::told) {
        rows.add("photo.on.rectangle", "Files to process", confirmationWords("Calculating…"));
    }
}

void addMode(Rows& rows, const Options& options) {
    const auto& theme = Theme::shared();
    if (options.moveOriginalsWhenReliable)
        rows.add("arrow.right.square.fill", theme.alertOrange, "Mode",
                 confirmationWords("MOVE originals (destructive)"));
    else
        rows.add("doc.on.doc", theme.yellow, "Mode", confirmationWords("COPY originals (safe)"));
}

void addSafeguards(Rows& rows, const RunSettings& settings) {
    const auto& options = settings.options;
    if (options.computeHashForDuplicates)
        rows.add("number", "Duplicate detection", confirmationWords("SHA-256 enabled"));
    if (options.verifyAfterCopy) rows.add("checkmark.shield", "Copy verification", confirmationWords("Enabled"));
    if (options.keepRawJpegPairs) rows.add("link", "RAW + JPEG pairs", confirmationWords("Kept together"));
    if (options.syncFSDates) rows.add("calendar", "Sync FS dates", confirmationWords("Enabled"));
    if (settings.activeRules > 0)
        rows.add("pencil", "Rename rules", confirmationWords("%1 active rule(s)").arg(settings.activeRules));
}

}  // namespace

std::vector<PromiseRow> dryRunPromises() {
    const auto& theme = Theme::shared();
    return {{"eye", theme.yellow,
             confirmationWords("Shows every file move before it happens — no files are copied, moved, or deleted")},
            {"doc.text", theme.yellow,
             confirmationWords(
                 "Exports a _preview_plan.csv to your destination folder so you can review the full plan in Excel or "
                 "Numbers")},
            {"doc.badge.gearshape", theme.yellow,
             confirmationWords("Generates a _duplicates_report.csv listing any exact duplicate files found")},
            {"checkmark.shield", theme.success,
             confirmationWords("Zero risk — your original photos are completely untouched")},
            {"arrow.uturn.backward", theme.success, confirmationWords("No undo needed — nothing was done")}};
}

std::vector<PromiseRow> realRunPromises(const Options& options) {
    const auto& theme = Theme::shared();
    std::vector<PromiseRow> rows;
    if (options.moveOriginalsWhenReliable)
        rows.push_back({"arrow.right.square.fill", theme.alertOrange,
                        confirmationWords("Source files will be MOVED — originals deleted after a successful copy")});
    else
        rows.push_back({"doc.on.doc", theme.yellow,
                        confirmationWords("Source files will be COPIED — originals remain untouched")});
    rows.push_back({"folder.badge.plus", theme.yellow,
                    confirmationWords("Destination folders created automatically using your naming style")});
    rows.push_back(
        {"doc.text", theme.yellow,
         confirmationWords("A _preview_plan.csv and _duplicates_report.csv are exported to your destination")});
    if (options.verifyAfterCopy)
        rows.push_back(
            {"checkmark.shield", theme.success,
             confirmationWords("Each copied file is verified — SHA-256 compared between source and destination")});
    rows.push_back({"arrow.uturn.backward", theme.success,
                    confirmationWords("An undo manifest is saved — you can fully reverse this run at any time")});
    return rows;
}

QString realRunSubtitle(const Options& options) {
    return options.moveOriginalsWhenReliable
               ? confirmationWords("Files will be sorted and moved to your destination folder.")
               : confirmationWords("Files will be sorted and copied to your destination folder.");
}

std::vector<SettingRow> settingRows(const RunSettings& settings, MissingEstimate missingEstimate) {
    const auto& options = settings.options;
    Rows rows;
    rows.add("folder", "Source", sourceText(settings.sources));
    rows.add("folder.fill", "Destination", folderName(settings.dest));
    addEstimate(rows, settings.estimate, missingEstimate);
    rows.add("textformat", "Naming style", namingStyleLabel(options.namingStyle));
    rows.add("photo", "File types", fileTypesText(options));
    rows.add("arrow.triangle.branch", "On conflict", conflictLabel(options.conflictPolicy));
    addMode(rows, options);
    addSafeguards(rows, settings);
    return rows.take();
}

}  // namespace vellomar
