#include <set>

#include <gmock/gmock.h>

#include "settings/OptionFields.h"
#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"

namespace vellomar {
namespace {

using testing::SettingsFile;

struct Row {
    const char* key;
    Json byDefault;
    const char* field;
    Json other;  // another value of its type
    bool (*isOther)(const Options&);
};

std::vector<Row> rows() {
    return {
        {"opt_dryRun", true, "dryRun", false, [](const Options& o) { return !o.dryRun; }},
        {"opt_moveOriginals", false, "moveOriginalsWhenReliable", true,
         [](const Options& o) { return o.moveOriginalsWhenReliable; }},
        {"opt_parseNameDates", true, "parseNameDates", false, [](const Options& o) { return !o.parseNameDates; }},
        {"opt_parseMonthWords", true, "parseMonthWords", false, [](const Options& o) { return !o.parseMonthWords; }},
        {"opt_computeHash", true, "computeHashForDuplicates", false,
         [](const Options& o) { return !o.computeHashForDuplicates; }},
        {"opt_useExifImages", true, "useExifToolForImages", false,
         [](const Options& o) { return !o.useExifToolForImages; }},
        {"opt_useExifVideo", true, "useExifToolForVideo", false,
         [](const Options& o) { return !o.useExifToolForVideo; }},
        {"opt_conflictPolicy", "Rename", "conflictPolicy", "Overwrite",
         [](const Options& o) { return o.conflictPolicy == ConflictPolicy::overwrite; }},
        {"opt_namingStyle", "recommended", "namingStyle", "cleanDate",
         [](const Options& o) { return o.namingStyle == NamingStyle::cleanDate; }},
        {"opt_customFormat", "{YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{HH}{mm}{ss}_{original}.{ext}",
         "customFormat", "{YYYY}", [](const Options& o) { return o.customFormat == "{YYYY}"; }},
        {"opt_includeImages", true, "includeImages", false, [](const Options& o) { return !o.includeImages; }},
        {"opt_includeVideos", false, "includeVideos", true, [](const Options& o) { return o.includeVideos; }},
        {"opt_includeOther", false, "includeOther", true, [](const Options& o) { return o.includeOther; }},
        {"opt_syncFSDates", false, "syncFSDates", true, [](const Options& o) { return o.syncFSDates; }},
        {"opt_duplicateAction", "Log Only", "duplicateAction", "Skip Duplicate",
         [](const Options& o) { return o.duplicateAction == DuplicateAction::skip; }},
        {"opt_resume", false, "resumeFromManifest", true, [](const Options& o) { return o.resumeFromManifest; }},
        {"opt_pHash", false, "usePerceptualHash", true, [](const Options& o) { return o.usePerceptualHash; }},
        {"opt_pHashThreshold", 4, "perceptualHashThreshold", 11,
         [](const Options& o) { return o.perceptualHashThreshold == 11; }},
        {"opt_verifyAfterCopy", true, "verifyAfterCopy", false, [](const Options& o) { return !o.verifyAfterCopy; }},
        {"opt_keepRawJpeg", true, "keepRawJpegPairs", false, [](const Options& o) { return !o.keepRawJpegPairs; }},
        {"opt_moveSidecars", true, "moveSidecars", false, [](const Options& o) { return !o.moveSidecars; }},
        {"opt_storageIsNAS", false, "storageIsNetwork", true, [](const Options& o) { return o.storageIsNetwork; }},
        {"opt_convertHEIC", false, "convertHEICToJPEG", true, [](const Options& o) { return o.convertHEICToJPEG; }},
        {"opt_stripGPS", false, "stripGPS", true, [](const Options& o) { return o.stripGPS; }},
        {"opt_stripAllMeta", false, "stripAllMetadata", true, [](const Options& o) { return o.stripAllMetadata; }},
    };
}

TEST(OptionFields, AreTheTwentyFiveOptionsByTheirNames) {
    const auto expected = rows();
    const auto fields = optionFields();
    ASSERT_EQ(fields.size(), 25U);
    ASSERT_EQ(expected.size(), fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        SCOPED_TRACE(expected[i].key);
        EXPECT_EQ(fields[i].key, expected[i].key);
        EXPECT_EQ(fields[i].name, expected[i].field);
        EXPECT_EQ(optionValue(Options{}, fields[i]), expected[i].byDefault);
        EXPECT_EQ(&optionField(fields[i].key), &fields[i]);
    }
}

TEST(OptionSettings, AnEmptyStoreGivesTheDefaults) {
    SettingsFile file;
    EXPECT_EQ(buildOptions(*file.open()), Options{});
}

TEST(OptionSettings, EachKeyChangesItsFieldAlone) {
    for (const auto& row : rows()) {
        SCOPED_TRACE(row.key);
        SettingsFile file;
        file.open()->setValue(row.key, row.other);
        auto options = buildOptions(*file.open());
        EXPECT_TRUE(row.isOther(options));
        EXPECT_TRUE(setOption(options, optionField(row.key), row.byDefault));
        EXPECT_EQ(options, Options{});
    }
}

TEST(OptionSettings, SavingAnOptionIsReadBack) {
    for (const auto& row : rows()) {
        SCOPED_TRACE(row.key);
        SettingsFile file;
        Options options;
        ASSERT_TRUE(setOption(options, optionField(row.key), row.other));
        saveOption(*file.open(), options, row.key);
        EXPECT_EQ(file.content(), (Json{{row.key, row.other}}));
        EXPECT_EQ(buildOptions(*file.open()), options);
    }
}

TEST(OptionSettings, EveryCaseOfAnEnumerationIsKeptByItsText) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> texts = {
        {"opt_conflictPolicy", {"Skip", "Rename", "Overwrite"}},
        {"opt_duplicateAction", {"Log Only", "Move to _Duplicates", "Skip Duplicate"}},
        {"opt_namingStyle", {"original", "recommended", "cleanDate", "archival", "custom"}}};
    for (const auto& [key, cases] : texts) {
        for (const auto& text : cases) {
            Options options;
            EXPECT_TRUE(setOption(options, optionField(key), text)) << text;
            EXPECT_EQ(optionValue(options, optionField(key)), text);
        }
    }
}

TEST(OptionSettings, WhatMatchesNoCaseReadsAsTheDefault) {
    for (const auto& row : rows()) {
        SCOPED_TRACE(row.key);
        for (const Json& strange : {Json("no such case"), Json(nullptr), Json(3.5), Json::array()}) {
            if (row.byDefault.is_string() && strange.is_string() && std::string(row.key) == "opt_customFormat")
                continue;
            SettingsFile file;
            file.open()->setValue(row.key, strange);
            EXPECT_EQ(buildOptions(*file.open()), Options{}) << strange.dump();
        }
    }
}

}  // namespace
}  // namespace vellomar
