#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/options/ConfigSummary.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

const QColor kOn = hexColour("F5C518");
const QColor kOff = hexColour("666660");

struct ExpectedSection {
    QString heading;
    std::vector<ConfigRow> rows;
};

void expectSections(const std::vector<ConfigSection>& sections, const std::vector<ExpectedSection>& expected) {
    ASSERT_EQ(sections.size(), expected.size());
    for (std::size_t i = 0; i < sections.size(); ++i) {
        SCOPED_TRACE(expected[i].heading.toStdString());
        EXPECT_EQ(sections[i].heading, expected[i].heading);
        ASSERT_EQ(sections[i].rows.size(), expected[i].rows.size());
        for (std::size_t k = 0; k < expected[i].rows.size(); ++k) {
            const auto& row = sections[i].rows[k];
            SCOPED_TRACE(row.key.toStdString());
            EXPECT_EQ(row.key, expected[i].rows[k].key);
            EXPECT_EQ(row.value, expected[i].rows[k].value);
            EXPECT_EQ(row.colour, expected[i].rows[k].colour);
        }
    }
}

TEST(ConfigSummary, AtTheFirstStart) {
    expectSections(configSections({}, 0, 0),
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
                    {"PRESETS & RULES", {{"Presets", "None", kOff}, {"Rename rules", "None", kOff}}}});
}

TEST(ConfigSummary, WithEverythingTheOtherWay) {
    Options options;
    options.moveOriginalsWhenReliable = options.usePerceptualHash = options.storageIsNetwork = true;
    options.resumeFromManifest = options.convertHEICToJPEG = options.stripGPS = options.stripAllMetadata = true;
    options.dryRun = options.useExifToolForImages = options.verifyAfterCopy = options.computeHashForDuplicates = false;
    options.conflictPolicy = ConflictPolicy::overwrite;
    options.namingStyle = NamingStyle::cleanDate;
    options.duplicateAction = DuplicateAction::moveToBin;
    expectSections(
        configSections(options, 3, 2),
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
         {"PRESETS & RULES", {{"Presets", "3 saved", kOn}, {"Rename rules", "2 active", kOn}}}});
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
