#include "ui/options/OptionRows.h"

#include <QtGlobal>
#include <array>

namespace vellomar {
namespace {

constexpr std::array kBasicRows = {
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "Fuzzy month names"),
              QT_TRANSLATE_NOOP("OptionRows", "Match 'Jan', 'January' etc."),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Vellomar can recognise folder names like 'Jan', 'January', 'Enero' as month "
                                "indicators when reading folder-based dates."),
              "opt_parseMonthWords"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "ExifTool for images"),
              QT_TRANSLATE_NOOP("OptionRows", "More accurate EXIF dates"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Uses ExifTool (brew install exiftool) for reading EXIF data. Unlocks HEIC "
                                "conversion, GPS stripping, and date correction."),
              "opt_useExifImages"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "Check for duplicates"),
              QT_TRANSLATE_NOOP("OptionRows", "Detect before sort"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Scans for SHA-256 exact duplicates and perceptual near-duplicates before running. "
                                "Duplicates can be logged, skipped, or moved to a _Duplicates folder."),
              "opt_computeHash"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Conversion"), QT_TRANSLATE_NOOP("OptionRows", "Convert HEIC → JPEG"),
              QT_TRANSLATE_NOOP("OptionRows", "Requires ExifTool"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Automatically converts HEIC/HEIF files to 92% quality JPEG after sorting. Requires "
                                "ExifTool to be installed."),
              "opt_convertHEIC"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Conversion"), QT_TRANSLATE_NOOP("OptionRows", "Copy .xmp sidecars"),
              QT_TRANSLATE_NOOP("OptionRows", "RAW sidecar files"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "XMP sidecar files follow their parent RAW file to the same destination folder "
                                "automatically."),
              "opt_moveSidecars"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Privacy"), QT_TRANSLATE_NOOP("OptionRows", "Strip GPS from copies"),
              QT_TRANSLATE_NOOP("OptionRows", "Remove location data"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Removes GPS latitude, longitude, altitude, and timestamp from copied files. "
                                "Originals are not modified."),
              "opt_stripGPS"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Privacy"), QT_TRANSLATE_NOOP("OptionRows", "Strip all metadata"),
              QT_TRANSLATE_NOOP("OptionRows", "Remove all EXIF/IPTC/XMP"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Wipes all EXIF, IPTC, and XMP metadata from copies. Use this before sharing photos "
                                "publicly."),
              "opt_stripAllMeta"},
};

constexpr std::array kAdvancedRows = {
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Near-duplicates"),
              QT_TRANSLATE_NOOP("OptionRows", "Near-duplicate (pHash)"),
              QT_TRANSLATE_NOOP("OptionRows", "Visual similarity detection"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Perceptual hash comparison finds photos that look nearly identical even if the file "
                                "bytes differ (different compression, slight crop)."),
              "opt_pHash"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Sync"), QT_TRANSLATE_NOOP("OptionRows", "Sync FI dates to EXIF"),
              QT_TRANSLATE_NOOP("OptionRows", "Filesystem → EXIF"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "When no EXIF date exists, writes the filesystem modification date into the EXIF "
                                "DateTimeOriginal field. Requires ExifTool."),
              "opt_syncFSDates"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Sync"), QT_TRANSLATE_NOOP("OptionRows", "Resume interrupted run"),
              QT_TRANSLATE_NOOP("OptionRows", "Skip already-copied files"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "If a previous run was interrupted, Vellomar skips files that were already "
                                "successfully copied to the destination."),
              "opt_resume"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Storage"), QT_TRANSLATE_NOOP("OptionRows", "NAS storage mode"),
              QT_TRANSLATE_NOOP("OptionRows", "Optimised for network volumes"),
              QT_TRANSLATE_NOOP("OptionRows",
                                "Uses optimised batch reading for SMB/NFS network attached storage. Reduces timeout "
                                "errors on slow network volumes."),
              "opt_storageIsNAS"},
};

constexpr std::array kFileRows = {
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "Move originals when reliable"),
              "",
              QT_TRANSLATE_NOOP("OptionRows",
                                "When a strong date source is found (EXIF, filename), the original is moved instead "
                                "of copied."),
              "opt_moveOriginals"},
    OptionRow{QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "Keep RAW + JPEG pairs"), "",
              QT_TRANSLATE_NOOP("OptionRows", "Detects RAW+JPEG pairs and puts both in the same destination folder."),
              "opt_keepRawJpeg"},
    OptionRow{
        QT_TRANSLATE_NOOP("OptionRows", "Files"), QT_TRANSLATE_NOOP("OptionRows", "Verify copy integrity"), "",
        QT_TRANSLATE_NOOP("OptionRows", "After each copy, compares SHA-256 hashes to confirm a bit-perfect copy."),
        "opt_verifyAfterCopy"},
};

}  // namespace

std::span<const OptionRow> basicOptionRows() {
    return kBasicRows;
}

std::span<const OptionRow> advancedOptionRows() {
    return kAdvancedRows;
}

std::span<const OptionRow> fileOptionRows() {
    return kFileRows;
}

}  // namespace vellomar
