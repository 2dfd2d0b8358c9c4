#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/inspector/DateExplanation.h"

namespace vellomar {
namespace {

constexpr const char* kCamera =
    "The shoot date was read directly from the camera's EXIF metadata — this is the most reliable source, recorded by "
    "the "
    "camera at the moment the photo was taken.";
constexpr const char* kExifTool =
    "The date was extracted from the file's embedded metadata using ExifTool. This covers RAW formats (ARW, CR2, NEF) "
    "and "
    "video containers that embed camera timestamps.";
constexpr const char* kFilename =
    "No EXIF date was found, so the date was parsed from the filename itself. Common patterns like IMG_20230614 or "
    "PXL_20230614 are detected automatically.";
constexpr const char* kMonthFolder =
    "The date was inferred from the folder path, which contained both a year and a month (e.g. '2023/08' or '08 - "
    "August'). Specific day is unknown so mid-month is used.";
constexpr const char* kYearFolder =
    "No EXIF or filename date was available. The year was extracted from the folder name (e.g. 'Fotos Vacaciones "
    "2012'). "
    "Month is unknown so June 15 is used as a mid-year placeholder.";
constexpr const char* kSibling =
    "This video had no metadata of its own. The year was borrowed from a JPEG file in the same folder that did have "
    "EXIF "
    "data — a safe assumption when photos and videos were shot together.";
constexpr const char* kFileSystem =
    "The date was taken from the file system's recorded creation or modification date. These are less reliable — they "
    "change when files are copied or moved.";

TEST(DateExplanation, GoesByTheSource) {
    struct Case {
        const char* source;
        const char* text;
    };
    for (const auto& [source, text] :
         {Case{"EXIF DateTimeOriginal+confirmed", kCamera}, Case{"ExifTool DateTimeOriginal", kExifTool},
          Case{"TIFF DateTime", kCamera}, Case{"EXIF CreateDate", kExifTool}, Case{"ExifTool", kExifTool},
          Case{"Filename-WhatsApp", kFilename}, Case{"FILENAME", kFilename}, Case{"Folder-derived Y/M", kMonthFolder},
          Case{"Folder-derived Y", kYearFolder}, Case{"Sibling year", kSibling}, Case{"FS CreationDate", kFileSystem},
          Case{"—", kFileSystem}, Case{"", kFileSystem}})
        EXPECT_EQ(dateExplanation(source), text) << source;
}

}  // namespace
}  // namespace vellomar
