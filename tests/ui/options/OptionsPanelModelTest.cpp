#include <QSignalSpy>

#include <gmock/gmock.h>

#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"
#include "ui/QtPrinters.h"
#include "ui/options/HashGuard.h"
#include "ui/options/OptionsPanelModel.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;

class OptionsPanelModelTest : public ::testing::Test {
protected:
    [[nodiscard]] Options kept() const { return buildOptions(*settings); }

    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    bool isLarge = false;
    OptionsPanelModel model{*settings, [this] { return isLarge; }};
};

TEST(HashGuard, AsksAboveFiftyThousandFilesOrWhereNobodyCounted) {
    const auto estimateOf = [](std::int64_t files) { return RunEstimate{.fileCount = files}; };
    for (const bool hasSources : {false, true}) {
        EXPECT_FALSE(mayHashForHours(estimateOf(50'000), hasSources));
        EXPECT_TRUE(mayHashForHours(estimateOf(50'001), hasSources));
        EXPECT_EQ(mayHashForHours(std::nullopt, hasSources), hasSources);
    }
}

TEST_F(OptionsPanelModelTest, HashingASmallLibraryIsSwitchedAtOnce) {
    model.setOn("opt_computeHash", false);
    EXPECT_FALSE(kept().computeHashForDuplicates);
    model.setOn("opt_computeHash", true);
    EXPECT_TRUE(kept().computeHashForDuplicates);
    EXPECT_FALSE(model.isHashAsked());
}

TEST_F(OptionsPanelModelTest, HashingALargeLibraryIsAskedForFirst) {
    isLarge = true;
    model.setOn("opt_computeHash", true);
    EXPECT_FALSE(model.isHashAsked()) << "it is on already";
    model.setOn("opt_computeHash", false);
    EXPECT_FALSE(model.isHashAsked()) << "off is harmless";

    model.setOn("opt_computeHash", true);
    EXPECT_TRUE(model.isHashAsked());
    EXPECT_FALSE(kept().computeHashForDuplicates);
    model.dismissHash();
    EXPECT_FALSE(model.isHashAsked());
    EXPECT_FALSE(kept().computeHashForDuplicates);

    model.setOn("opt_computeHash", true);
    model.enableHash();
    EXPECT_FALSE(model.isHashAsked());
    EXPECT_TRUE(kept().computeHashForDuplicates);
}

TEST_F(OptionsPanelModelTest, EitherWayOfStrippingSwitchesTheOtherOff) {
    model.setOn("opt_stripGPS", true);
    EXPECT_TRUE(kept().stripGPS);
    model.setOn("opt_stripAllMeta", true);
    EXPECT_TRUE(kept().stripAllMetadata);
    EXPECT_FALSE(kept().stripGPS);
    model.setOn("opt_stripGPS", true);
    EXPECT_TRUE(kept().stripGPS);
    EXPECT_FALSE(kept().stripAllMetadata);
}

TEST_F(OptionsPanelModelTest, SwitchingOneWayOfStrippingOffLeavesTheOther) {
    settings->setValue("opt_stripGPS", true);
    settings->setValue("opt_stripAllMeta", true);
    model.setOn("opt_stripGPS", false);
    EXPECT_TRUE(kept().stripAllMetadata);
    EXPECT_FALSE(kept().stripGPS);
}

TEST_F(OptionsPanelModelTest, TheOtherPoliciesAreSetAtOnce) {
    EXPECT_THAT(model.conflictLabels(), ElementsAre("Rename", "Skip", "Overwrite"));
    EXPECT_EQ(model.conflict(), 0);
    model.chooseConflict(1);
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::skip);
    EXPECT_EQ(model.conflict(), 1);
    model.chooseConflict(0);
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::rename);
    EXPECT_FALSE(model.isOverwriteAsked());
}

TEST_F(OptionsPanelModelTest, OverwritingIsAskedForFirst) {
    model.chooseConflict(1);
    model.chooseConflict(2);
    EXPECT_TRUE(model.isOverwriteAsked());
    EXPECT_EQ(model.conflict(), 1);
    model.dismissOverwrite();
    EXPECT_FALSE(model.isOverwriteAsked());
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::skip) << "the one before stays";

    model.chooseConflict(2);
    model.useOverwrite();
    EXPECT_FALSE(model.isOverwriteAsked());
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::overwrite);
    model.chooseConflict(2);
    EXPECT_FALSE(model.isOverwriteAsked()) << "it is in force already";
}

TEST_F(OptionsPanelModelTest, ANumberThatIsNoPolicyChangesNothing) {
    for (const int policy : {-1, 3}) {
        model.chooseConflict(policy);
        EXPECT_EQ(model.conflict(), 0) << policy;
    }
}

TEST_F(OptionsPanelModelTest, WithoutAnyKindOfFileItSaysSo) {
    EXPECT_TRUE(model.includesImages());
    EXPECT_FALSE(model.includesVideos());
    EXPECT_FALSE(model.includesOther());
    EXPECT_FALSE(model.lacksFileTypes());
    model.toggleImages();
    EXPECT_TRUE(model.lacksFileTypes());
    model.toggleVideos();
    EXPECT_TRUE(kept().includeVideos);
    EXPECT_FALSE(model.lacksFileTypes());
    model.toggleVideos();
    model.toggleOther();
    EXPECT_TRUE(kept().includeOther);
    EXPECT_FALSE(model.lacksFileTypes());
}

TEST_F(OptionsPanelModelTest, TheTabIsKept) {
    EXPECT_FALSE(model.showsAdvanced());
    const QSignalSpy changes(&model, &OptionsPanelModel::changed);
    model.setShowsAdvanced(true);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(settings->boolean("ui_showAdvanced"));
    EXPECT_TRUE(model.showsAdvanced());
}

}  // namespace
}  // namespace vellomar
