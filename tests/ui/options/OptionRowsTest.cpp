#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <array>

#include <gmock/gmock.h>

#include "settings/SettingsFile.h"
#include "ui/QtPrinters.h"
#include "ui/options/OptionRowsModel.h"
#include "ui/options/OptionSwitch.h"

namespace vellomar {
namespace {

struct ExpectedRow {
    const char* section;
    const char* label;
    const char* subLabel;
    const char* tooltip;
    const char* key;
    bool byDefault;
};

constexpr std::array kBasic = {
    ExpectedRow{"Files", "Fuzzy month names", "Match 'Jan', 'January' etc.",
                "Vellomar can recognise folder names like 'Jan', 'January', 'Enero' as month indicators when reading "
                "folder-based dates.",
                "opt_parseMonthWords", true},
    ExpectedRow{
        "Files", "ExifTool for images", "More accurate EXIF dates",
        "Uses ExifTool (brew install exiftool) for reading EXIF data. Unlocks HEIC conversion, GPS stripping, and "
        "date correction.",
        "opt_useExifImages", true},
    ExpectedRow{"Files", "Check for duplicates", "Detect before sort",
                "Scans for SHA-256 exact duplicates and perceptual near-duplicates before running. Duplicates can be "
                "logged, skipped, or moved to a _Duplicates folder.",
                "opt_computeHash", true},
    ExpectedRow{"Conversion", "Convert HEIC → JPEG", "Requires ExifTool",
                "Automatically converts HEIC/HEIF files to 92% quality JPEG after sorting. Requires ExifTool to be "
                "installed.",
                "opt_convertHEIC", false},
    ExpectedRow{"Conversion", "Copy .xmp sidecars", "RAW sidecar files",
                "XMP sidecar files follow their parent RAW file to the same destination folder automatically.",
                "opt_moveSidecars", true},
    ExpectedRow{
        "Privacy", "Strip GPS from copies", "Remove location data",
        "Removes GPS latitude, longitude, altitude, and timestamp from copied files. Originals are not modified.",
        "opt_stripGPS", false},
    ExpectedRow{"Privacy", "Strip all metadata", "Remove all EXIF/IPTC/XMP",
                "Wipes all EXIF, IPTC, and XMP metadata from copies. Use this before sharing photos publicly.",
                "opt_stripAllMeta", false},
};

constexpr std::array kAdvanced = {
    ExpectedRow{"Near-duplicates", "Near-duplicate (pHash)", "Visual similarity detection",
                "Perceptual hash comparison finds photos that look nearly identical even if the file bytes differ "
                "(different compression, slight crop).",
                "opt_pHash", false},
    ExpectedRow{
        "Sync", "Sync FI dates to EXIF", "Filesystem → EXIF",
        "When no EXIF date exists, writes the filesystem modification date into the EXIF DateTimeOriginal field. "
        "Requires ExifTool.",
        "opt_syncFSDates", false},
    ExpectedRow{"Sync", "Resume interrupted run", "Skip already-copied files",
                "If a previous run was interrupted, Vellomar skips files that were already successfully copied to the "
                "destination.",
                "opt_resume", false},
    ExpectedRow{"Storage", "NAS storage mode", "Optimised for network volumes",
                "Uses optimised batch reading for SMB/NFS network attached storage. Reduces timeout errors on slow "
                "network volumes.",
                "opt_storageIsNAS", false},
    ExpectedRow{"Files", "Move originals when reliable", "",
                "When a strong date source is found (EXIF, filename), the original is moved instead of copied.",
                "opt_moveOriginals", false},
    ExpectedRow{"Files", "Keep RAW + JPEG pairs", "",
                "Detects RAW+JPEG pairs and puts both in the same destination folder.", "opt_keepRawJpeg", true},
    ExpectedRow{"Files", "Verify copy integrity", "",
                "After each copy, compares SHA-256 hashes to confirm a bit-perfect copy.", "opt_verifyAfterCopy", true},
};

// A row as it is shown.
struct Shown {
    QString section;
    QString label;
    QString subLabel;
    QString tooltip;
    QString key;
    bool isFirst = false;
    bool isOn = false;
    bool operator==(const Shown&) const = default;
};

void PrintTo(const Shown& row, std::ostream* stream) {
    for (const auto& text : {row.section, row.label, row.subLabel, row.tooltip, row.key})
        *stream << text.toStdString() << " | ";
    *stream << row.isFirst << " " << row.isOn;
}

std::vector<Shown> shownRows(const OptionRowsModel& model) {
    std::vector<Shown> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        const auto at = [&](int role) { return model.index(row).data(role); };
        const auto text = [&](int role) { return at(role).toString(); };
        rows.push_back({text(OptionRowsModel::sectionRole), text(OptionRowsModel::labelRole),
                        text(OptionRowsModel::subLabelRole), text(OptionRowsModel::tooltipRole),
                        text(OptionRowsModel::keyRole), at(OptionRowsModel::isFirstRole).toBool(),
                        at(OptionRowsModel::isOnRole).toBool()});
    }
    return rows;
}

std::vector<Shown> expectedRows(std::span<const ExpectedRow> expected) {
    std::vector<Shown> rows;
    for (const auto& row : expected)
        rows.push_back({row.section, row.label, row.subLabel, row.tooltip, row.key,
                        rows.empty() || rows.back().section != row.section, row.byDefault});
    return rows;
}

class OptionRowsTest : public ::testing::Test {
protected:
    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    OptionRowsModel basic{basicOptionRows(), *settings};
    OptionRowsModel advanced{advancedOptionRows(), *settings};
    OptionRowsModel files{fileOptionRows(), *settings};
};

TEST_F(OptionRowsTest, HaveTheirWordsAndDefaultsInOrder) {
    const QAbstractItemModelTester basicTester(&basic);
    const QAbstractItemModelTester advancedTester(&advanced);
    EXPECT_EQ(shownRows(basic), expectedRows(kBasic));
    EXPECT_EQ(shownRows(advanced), expectedRows(std::span(kAdvanced).first(4)));
    EXPECT_EQ(shownRows(files), expectedRows(std::span(kAdvanced).last(3)));
}

TEST_F(OptionRowsTest, FollowTheSettings) {
    for (auto* const model : {&basic, &advanced, &files}) {
        for (int row = 0; row < model->rowCount(); ++row) {
            const auto key = model->index(row).data(OptionRowsModel::keyRole).toString().toStdString();
            SCOPED_TRACE(key);
            const bool before = model->index(row).data(OptionRowsModel::isOnRole).toBool();
            const QSignalSpy changes(model, &QAbstractItemModel::dataChanged);
            switchOption(*settings, key, !before);
            EXPECT_EQ(model->index(row).data(OptionRowsModel::isOnRole).toBool(), !before);
            ASSERT_EQ(changes.count(), 1);
            EXPECT_EQ(changes[0][0].toModelIndex().row(), row);
        }
    }
}

}  // namespace
}  // namespace vellomar
