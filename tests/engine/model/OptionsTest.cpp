#include <gtest/gtest.h>

#include "engine/model/Options.h"

namespace vellomar {
namespace {

TEST(Options, FlagsStartAsTheSettingsDo) {
    struct Case {
        const char* name;
        bool Options::*flag;
        bool start;
    };
    constexpr Case kCases[] = {
        {"dryRun", &Options::dryRun, true},
        {"moveOriginalsWhenReliable", &Options::moveOriginalsWhenReliable, false},
        {"parseMonthWords", &Options::parseMonthWords, true},
        {"parseNameDates", &Options::parseNameDates, true},
        {"useExifToolForImages", &Options::useExifToolForImages, true},
        {"useExifToolForVideo", &Options::useExifToolForVideo, true},
        {"computeHashForDuplicates", &Options::computeHashForDuplicates, true},
        {"includeImages", &Options::includeImages, true},
        {"includeVideos", &Options::includeVideos, false},
        {"includeOther", &Options::includeOther, false},
        {"syncFSDates", &Options::syncFSDates, false},
        {"resumeFromManifest", &Options::resumeFromManifest, false},
        {"usePerceptualHash", &Options::usePerceptualHash, false},
        {"verifyAfterCopy", &Options::verifyAfterCopy, true},
        {"keepRawJpegPairs", &Options::keepRawJpegPairs, true},
        {"moveSidecars", &Options::moveSidecars, true},
        {"storageIsNetwork", &Options::storageIsNetwork, false},
        {"convertHEICToJPEG", &Options::convertHEICToJPEG, false},
        {"stripGPS", &Options::stripGPS, false},
        {"stripAllMetadata", &Options::stripAllMetadata, false},
    };
    const Options options;
    for (const auto& [name, flag, start] : kCases)
        EXPECT_EQ(options.*flag, start) << name;
}

TEST(Options, ChoicesStartAsTheSettingsDo) {
    const Options options;
    EXPECT_EQ(options.conflictPolicy, ConflictPolicy::rename);
    EXPECT_EQ(options.namingStyle, NamingStyle::recommended);
    EXPECT_EQ(options.customFormat, "{YYYY}/{MM} - {Month}/{Event}/{YYYY}-{MM}-{DD}_{HH}{mm}{ss}_{original}.{ext}");
    EXPECT_EQ(options.duplicateAction, DuplicateAction::log);
    EXPECT_EQ(options.perceptualHashThreshold, 4);
}

}  // namespace
}  // namespace vellomar
