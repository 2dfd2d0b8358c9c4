#include <gmock/gmock.h>

#include "settings/JsonValues.h"
#include "settings/OptionSettings.h"
#include "settings/PresetList.h"
#include "settings/SettingsFile.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SettingsFile;

std::vector<std::string> namesOf(const PresetList& list) {
    std::vector<std::string> names;
    for (const auto& preset : list.presets())
        names.push_back(preset.name);
    return names;
}

std::vector<std::string> keptNames(SettingsFile& file) {
    const auto store = file.open();
    PresetList list(*store);
    list.loadPresets();
    return namesOf(list);
}

// Every option other than by default, where it has a choice.
Options everythingChanged() {
    Options options;
    options.dryRun = options.parseMonthWords = options.parseNameDates = false;
    options.useExifToolForImages = options.useExifToolForVideo = options.computeHashForDuplicates = false;
    options.verifyAfterCopy = options.keepRawJpegPairs = options.moveSidecars = options.includeImages = false;
    options.moveOriginalsWhenReliable = options.syncFSDates = options.usePerceptualHash = true;
    options.includeVideos = options.includeOther = options.resumeFromManifest = options.storageIsNetwork = true;
    options.convertHEICToJPEG = options.stripGPS = options.stripAllMetadata = true;
    options.conflictPolicy = ConflictPolicy::overwrite;
    options.namingStyle = NamingStyle::archival;
    options.customFormat = "{YYYY}";
    options.duplicateAction = DuplicateAction::skip;
    options.perceptualHashThreshold = 10;
    return options;
}

TEST(PresetList, KeepsWhatIsSavedUnderItsTrimmedName) {
    SettingsFile file;
    {
        const auto store = file.open();
        PresetList list(*store);
        list.loadPresets();
        EXPECT_TRUE(list.savePreset("  Travel\n", {}));
        EXPECT_TRUE(list.savePreset("Travel", everythingChanged()));
        EXPECT_NE(list.presets()[0].id, list.presets()[1].id);
    }
    EXPECT_THAT(keptNames(file), ElementsAre("Travel", "Travel"));
}

TEST(PresetList, ANameOfBlanksSavesNothing) {
    SettingsFile file;
    const auto store = file.open();
    PresetList list(*store);
    for (const auto* name : {"", " ", "\t\n", "\u00A0\u2003"})
        EXPECT_FALSE(list.savePreset(name, {}));
    EXPECT_THAT(list.presets(), IsEmpty());
    EXPECT_EQ(store->value("saved_presets"), std::nullopt);
}

TEST(PresetList, DeletesTheOneAndNoOtherOfItsName) {
    SettingsFile file;
    {
        const auto store = file.open();
        PresetList list(*store);
        for (const auto* name : {"a", "b", "b"})
            list.savePreset(name, {});
        const auto kept = list.presets()[2].id;
        list.deletePreset(list.presets()[1].id);
        ASSERT_THAT(namesOf(list), ElementsAre("a", "b"));
        EXPECT_EQ(list.presets()[1].id, kept);
        list.deletePreset(Uuid::random());
        EXPECT_EQ(list.presets().size(), 2U);
    }
    EXPECT_THAT(keptNames(file), ElementsAre("a", "b"));
}

TEST(PresetList, LoadingSetsEighteenSettings) {
    SettingsFile file;
    {
        const auto store = file.open();
        PresetList list(*store);
        list.savePreset("all", everythingChanged());
        list.applyPreset(list.presets()[0]);
    }
    auto expected = everythingChanged();
    const Options untouched;
    expected.verifyAfterCopy = untouched.verifyAfterCopy;
    expected.keepRawJpegPairs = untouched.keepRawJpegPairs;
    expected.moveSidecars = untouched.moveSidecars;
    expected.convertHEICToJPEG = untouched.convertHEICToJPEG;
    expected.stripGPS = untouched.stripGPS;
    expected.stripAllMetadata = untouched.stripAllMetadata;
    expected.storageIsNetwork = untouched.storageIsNetwork;
    expected.resumeFromManifest = false;
    EXPECT_EQ(buildOptions(*file.open()), expected);
    EXPECT_EQ(file.content().size(), 18U + 1U) << "the eighteen and the presets";
}

TEST(PresetList, LoadingLeavesTheOtherSevenAndEndsResuming) {
    SettingsFile file(R"({"opt_storageIsNAS": true, "opt_resume": true, "opt_verifyAfterCopy": false,
                          "opt_keepRawJpeg": false, "opt_moveSidecars": false, "opt_convertHEIC": true,
                          "opt_stripGPS": true, "opt_stripAllMeta": true})");
    const auto store = file.open();
    PresetList list(*store);
    list.savePreset("defaults", {});
    const auto kept = store->bytes("saved_presets");
    list.applyPreset(list.presets()[0]);
    const auto options = buildOptions(*store);
    EXPECT_TRUE(options.storageIsNetwork);
    EXPECT_FALSE(options.resumeFromManifest);
    EXPECT_FALSE(options.verifyAfterCopy);
    EXPECT_FALSE(options.keepRawJpegPairs);
    EXPECT_FALSE(options.moveSidecars);
    EXPECT_TRUE(options.convertHEICToJPEG);
    EXPECT_TRUE(options.stripGPS);
    EXPECT_TRUE(options.stripAllMetadata);
    EXPECT_EQ(store->bytes("saved_presets"), kept);
}

TEST(PresetList, BytesThatCannotBeReadGiveNoPresetsAndStayUntilTheNextSave) {
    SettingsFile file(Json{{"saved_presets", jsonOfBytes("[{}]")}}.dump());
    const auto store = file.open();
    PresetList list(*store);
    list.loadPresets();
    EXPECT_THAT(list.presets(), IsEmpty());
    EXPECT_EQ(store->bytes("saved_presets"), "[{}]");
    list.savePreset("new", {});
    EXPECT_EQ(presetsFrom(store->bytes("saved_presets").value())->size(), 1U);
}

TEST(PresetList, AFailedLoadLeavesTheListAsItIs) {
    SettingsFile file;
    const auto store = file.open();
    PresetList list(*store);
    list.savePreset("a", {});
    store->setBytes("saved_presets", "damaged");
    list.loadPresets();
    EXPECT_THAT(namesOf(list), ElementsAre("a"));
}

}  // namespace
}  // namespace vellomar
