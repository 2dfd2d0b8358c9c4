#include <algorithm>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/confirmation/ConfirmationRows.h"
#include "ui/confirmation/PlainSettings.h"
#include "ui/theme/HexColour.h"

namespace vellomar {

void PrintTo(const PromiseRow& row, std::ostream* stream) {
    *stream << row.symbol.toStdString() << " " << row.text.toStdString();
}

namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

const QColor kYellow = hexColour("F5C518");
const QColor kGreen = hexColour("3D8B5E");
const QColor kOrange = hexColour("FF8C00");

std::vector<std::pair<QString, QString>> textsOf(const std::vector<SettingRow>& rows) {
    std::vector<std::pair<QString, QString>> texts;
    for (const auto& row : rows)
        texts.emplace_back(row.key, row.value);
    return texts;
}

// With as few rows as there can be.
QString valueOf(const RunSettings& settings, const char* key) {
    const auto rows = settingRows(settings, MissingEstimate::leftOut);
    const auto row = std::ranges::find(rows, QString(key), &SettingRow::key);
    return row == rows.end() ? QString("(no such row)") : row->value;
}

TEST(ConfirmationRows, ADryRunPromisesFiveThings) {
    EXPECT_THAT(
        dryRunPromises(),
        ElementsAre(
            PromiseRow{"eye", kYellow,
                       "Shows every file move before it happens — no files are copied, moved, or deleted"},
            PromiseRow{"doc.text", kYellow,
                       "Exports a _preview_plan.csv to your destination folder so you can review the full plan in "
                       "Excel or Numbers"},
            PromiseRow{"doc.badge.gearshape", kYellow,
                       "Generates a _duplicates_report.csv listing any exact duplicate files found"},
            PromiseRow{"checkmark.shield", kGreen, "Zero risk — your original photos are completely untouched"},
            PromiseRow{"arrow.uturn.backward", kGreen, "No undo needed — nothing was done"}));
}

TEST(ConfirmationRows, ARealRunTellsWhatWillHappen) {
    Options options;
    const PromiseRow copied{"doc.on.doc", kYellow, "Source files will be COPIED — originals remain untouched"};
    const PromiseRow moved{"arrow.right.square.fill", kOrange,
                           "Source files will be MOVED — originals deleted after a successful copy"};
    const PromiseRow folders{"folder.badge.plus", kYellow,
                             "Destination folders created automatically using your naming style"};
    const PromiseRow reports{"doc.text", kYellow,
                             "A _preview_plan.csv and _duplicates_report.csv are exported to your destination"};
    const PromiseRow verified{"checkmark.shield", kGreen,
                              "Each copied file is verified — SHA-256 compared between source and destination"};
    const PromiseRow undo{"arrow.uturn.backward", kGreen,
                          "An undo manifest is saved — you can fully reverse this run at any time"};
    EXPECT_THAT(realRunPromises(options), ElementsAre(copied, folders, reports, verified, undo));
    EXPECT_EQ(realRunSubtitle(options), "Files will be sorted and copied to your destination folder.");
    options.moveOriginalsWhenReliable = true;
    options.verifyAfterCopy = false;
    EXPECT_THAT(realRunPromises(options), ElementsAre(moved, folders, reports, undo));
    EXPECT_EQ(realRunSubtitle(options), "Files will be sorted and moved to your destination folder.");
}

TEST(ConfirmationRows, TheFewestSettings) {
    EXPECT_THAT(
        textsOf(settingRows(plainSettings(), MissingEstimate::leftOut)),
        ElementsAre(Pair("Source", "Card"), Pair("Destination", "Sorted"), Pair("Naming style", "Recommended"),
                    Pair("File types", "IMG"), Pair("On conflict", "Rename"), Pair("Mode", "COPY originals (safe)")));
}

TEST(ConfirmationRows, AllSettings) {
    RunSettings settings{{"/a", "/b"}, "/d", {}, RunEstimate{1'200, 5'400'000'000, 90}, 3};
    settings.options.includeVideos = settings.options.includeOther = settings.options.syncFSDates = true;
    settings.options.moveOriginalsWhenReliable = true;
    for (const auto missing : {MissingEstimate::leftOut, MissingEstimate::told})
        EXPECT_THAT(textsOf(settingRows(settings, missing)),
                    ElementsAre(Pair("Source", "2 folders"), Pair("Destination", "d"),
                                Pair("Files to process", "1200 files · 5.4 GB"), Pair("Estimated time", "1m 30s"),
                                Pair("Naming style", "Recommended"), Pair("File types", "IMG + VID + OTHER"),
                                Pair("On conflict", "Rename"), Pair("Mode", "MOVE originals (destructive)"),
                                Pair("Duplicate detection", "SHA-256 enabled"), Pair("Copy verification", "Enabled"),
                                Pair("RAW + JPEG pairs", "Kept together"), Pair("Sync FS dates", "Enabled"),
                                Pair("Rename rules", "3 active rule(s)")));
}

TEST(ConfirmationRows, AMissingEstimateIsLeftOutOrTold) {
    const auto rows = textsOf(settingRows(plainSettings(), MissingEstimate::told));
    EXPECT_EQ(rows[2], (std::pair<QString, QString>("Files to process", "Calculating…")));
    EXPECT_EQ(rows[3].first, "Naming style");
}

TEST(ConfirmationRows, NameEveryChoice) {
    auto settings = plainSettings();
    const std::pair<NamingStyle, const char*> kStyles[] = {{NamingStyle::original, "Original"},
                                                           {NamingStyle::recommended, "Recommended"},
                                                           {NamingStyle::cleanDate, "Clean date"},
                                                           {NamingStyle::archival, "Archival"},
                                                           {NamingStyle::custom, "Custom"}};
    for (const auto& [style, text] : kStyles) {
        settings.options.namingStyle = style;
        EXPECT_EQ(valueOf(settings, "Naming style"), text);
    }
    const std::pair<ConflictPolicy, const char*> kPolicies[] = {
        {ConflictPolicy::rename, "Rename"}, {ConflictPolicy::skip, "Skip"}, {ConflictPolicy::overwrite, "Overwrite"}};
    for (const auto& [policy, text] : kPolicies) {
        settings.options.conflictPolicy = policy;
        EXPECT_EQ(valueOf(settings, "On conflict"), text);
    }
    settings.options.includeImages = false;
    settings.options.includeVideos = true;
    EXPECT_EQ(valueOf(settings, "File types"), "VID");
}

TEST(ConfirmationRows, TheModeHasItsOwnColour) {
    auto settings = plainSettings();
    EXPECT_EQ(settingRows(settings, MissingEstimate::leftOut).back(),
              (SettingRow{"doc.on.doc", kYellow, "Mode", "COPY originals (safe)"}));
    settings.options.moveOriginalsWhenReliable = true;
    EXPECT_EQ(settingRows(settings, MissingEstimate::leftOut).back(),
              (SettingRow{"arrow.right.square.fill", kOrange, "Mode", "MOVE originals (destructive)"}));
}

}  // namespace
}  // namespace vellomar
