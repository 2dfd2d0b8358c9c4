#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/options/ConfigSummary.h"
#include "ui/theme/HexColour.h"

namespace vellomar {

void PrintTo(const ConfigSection& section, std::ostream* stream) {
    *stream << section.heading.toStdString();
    for (const auto& row : section.rows)
        *stream << " | " << row.key.toStdString() << ": " << row.value.toStdString() << " "
                << row.colour.name().toStdString();
}

namespace {

const QColor kOn = hexColour("F5C518");
const QColor kOff = hexColour("666660");

TEST(ConfigSummary, AtTheFirstStart) {
    EXPECT_EQ(configSections({}, 0, 0),
              std::vector<ConfigSection>(
                  {{"GENERAL",
                    {{"Mode", "Copy", kOn},
                     {"Dry run", "On", kOn},
                     {"ExifTool", "On", kOn},
                     {"Verify", "On", kOn},
                     {"Conflict", "Rename", kOn}}},
                   {"NAMING", {{"Style", "Recommended", kOn}}},
                   {"DUPLICATES", {{"Hash scan", "On", kOn}, {"pHash", "Off", kOff}, {"Action", "Log Only", kOn}}},
                   {"STORAGE", {{"NAS mode", "Off", kOff}, {"Resume", "Off", kOff}}},
                   {"PRIVACY", {{"HEIC→JPEG", "Off", kOff}, {"Strip GPS", "Off", kOff}, {"Strip meta", "Off", kOff}}},
                   {"PRESETS & RULES", {{"Presets", "None", kOff}, {"Rename rules", "None", kOff}}}}));
}

TEST(ConfigSummary, WithEverythingTheOtherWay) {
    Options options;
    options.moveOriginalsWhenReliable = options.usePerceptualHash = options.storageIsNetwork = true;
    options.resumeFromManifest = options.convertHEICToJPEG = options.stripGPS = options.stripAllMetadata = true;
    options.dryRun = options.useExifToolForImages = options.verifyAfterCopy = options.computeHashForDuplicates = false;
    options.conflictPolicy = ConflictPolicy::overwrite;
    options.namingStyle = NamingStyle::cleanDate;
    options.duplicateAction = DuplicateAction::moveToBin;
    EXPECT_EQ(
        configSections(options, 3, 2),
        std::vector<ConfigSection>(
            {{"GENERAL",
              {{"Mode", "Move", kOn},
               {"Dry run", "Off", kOff},
               {"ExifTool", "Off", kOff},
               {"Verify", "Off", kOff},
               {"Conflict", "Overwrite", kOn}}},
             {"NAMING", {{"Style", "Clean date", kOn}}},
             {"DUPLICATES", {{"Hash scan", "Off", kOff}, {"pHash", "On", kOn}, {"Action", "Move to _Duplicates", kOn}}},
             {"STORAGE", {{"NAS mode", "On", kOn}, {"Resume", "On", kOn}}},
             {"PRIVACY", {{"HEIC→JPEG", "On", kOn}, {"Strip GPS", "On", kOn}, {"Strip meta", "On", kOn}}},
             {"PRESETS & RULES", {{"Presets", "3 saved", kOn}, {"Rename rules", "2 active", kOn}}}}));
}

TEST(ConfigSummary, TheRemainingWords) {
    Options options;
    options.conflictPolicy = ConflictPolicy::skip;
    options.duplicateAction = DuplicateAction::skip;
    const auto sections = configSections(options, 0, 0);
    EXPECT_EQ(sections[0].rows[4].value, "Skip");
    EXPECT_EQ(sections[2].rows[2].value, "Skip Duplicate");
}

}  // namespace
}  // namespace vellomar
