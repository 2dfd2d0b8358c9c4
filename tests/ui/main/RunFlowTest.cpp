#include <gmock/gmock.h>

#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "ui/LiveEngine.h"
#include "ui/main/RunFlow.h"

namespace vellomar {
namespace {

using testing::LiveEngine;
using testing::SettingsFile;
using testing::spinUntil;
using testing::TemporaryFolder;

constexpr const char* kPhoto = "trip/IMG_20230814_143021.jpg";
constexpr const char* kSorted = "2023/08 - August/trip/2023-08-14_000000_IMG_20230814_143021.jpg";

// A flow over one photo, with everything set that a run needs.
class RunFlowTest : public ::testing::Test {
protected:
    RunFlowTest() {
        photo = library.write("in/" + std::string(kPhoto));
        sources.add(library / "in");
        settings->setValue(keys::kDestPath, library.makeFolder("out"));
    }

    void set(const char* key, Json value) { settings->setValue(key, std::move(value)); }

    [[nodiscard]] bool isSorted() const { return testing::exists(library / "out" + std::string("/") + kSorted); }
    [[nodiscard]] bool isPlanned() const { return testing::exists(library / "out/_preview_plan.csv"); }

    TemporaryFolder library{TemporaryFolder::Where::inMemory};
    std::string photo;
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    SourceList sources{*settings};
    LiveEngine engine;
    RunFlow flow{*engine, engine.events(), *settings, sources};
};

TEST_F(RunFlowTest, NeedsASourceADestinationAndAKindOfFile) {
    EXPECT_TRUE(flow.canRun());
    for (const char* const kind : {"opt_includeImages", "opt_includeVideos", "opt_includeOther"}) {
        SCOPED_TRACE(kind);
        set("opt_includeImages", false);
        EXPECT_FALSE(flow.canRun());
        set(kind, true);
        EXPECT_TRUE(flow.canRun());
        set(kind, false);
    }
    set("opt_includeImages", true);
    settings->setValue(keys::kDestPath, "");
    EXPECT_FALSE(flow.canRun());
    settings->setValue(keys::kDestPath, library / "out");
    sources.clear();
    EXPECT_FALSE(flow.canRun());
}

TEST_F(RunFlowTest, WarningsDoNotHoldARunBack) {
    settings->setValue(keys::kDestPath, library / "in");
    EXPECT_TRUE(flow.canStart());
}

TEST_F(RunFlowTest, NothingStartsWhileTheEngineIsAtWork) {
    engine.makeBusy();
    EXPECT_TRUE(flow.canRun());
    EXPECT_FALSE(flow.canStart());
    EXPECT_FALSE(flow.canEstimate());
    EXPECT_FALSE(flow.canCancel()) << "an undo cannot be stopped";
    flow.askRun();
    EXPECT_FALSE(flow.isRunAsked());
    flow.askDryRun();
    EXPECT_FALSE(flow.isDryRunAsked());
    engine.waitForEnd();
    EXPECT_TRUE(flow.canStart());
}

TEST_F(RunFlowTest, NothingStartsWhileItIsHeldUp) {
    int changes = 0;
    QObject::connect(&flow, &RunFlow::changed, [&] { ++changes; });
    flow.setHeldUp(true);
    flow.setHeldUp(true);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(flow.canRun());
    EXPECT_FALSE(flow.canStart());
    flow.askRun();
    EXPECT_FALSE(flow.isRunAsked());
    flow.askDryRun();
    EXPECT_FALSE(flow.isDryRunAsked());
    flow.setHeldUp(false);
    EXPECT_TRUE(flow.canStart());
}

TEST_F(RunFlowTest, ADryRunIsOneWhateverTheSettingSays) {
    set("opt_dryRun", false);

    flow.askDryRun();
    EXPECT_TRUE(flow.isDryRunAsked());
    flow.startDryRun();
    EXPECT_FALSE(flow.isDryRunAsked());
    engine.waitForRun();

    EXPECT_TRUE(isPlanned());
    EXPECT_FALSE(isSorted());
    EXPECT_FALSE(settings->boolean("opt_dryRun", true));
}

TEST_F(RunFlowTest, ADryRunThatIsDismissedDoesNotBegin) {
    flow.askDryRun();
    flow.dismissDryRun();
    EXPECT_FALSE(flow.isDryRunAsked());
    EXPECT_FALSE(engine->hasTask());
}

TEST_F(RunFlowTest, WithoutFoldersTheConfirmedDryRunDoesNotBegin) {
    flow.askDryRun();
    sources.clear();
    flow.startDryRun();
    EXPECT_FALSE(flow.isDryRunAsked());
    EXPECT_FALSE(engine->hasTask());
}

TEST_F(RunFlowTest, ARealRunIgnoresTheSettingOfDryRuns) {
    set("opt_dryRun", true);

    flow.askRun();
    ASSERT_TRUE(flow.isRunAsked());
    EXPECT_FALSE(flow.pendingRun()->options.dryRun);
    EXPECT_FALSE(engine->hasTask()) << "it waits for its confirmation";
    flow.confirmRun();
    EXPECT_FALSE(flow.isRunAsked());
    engine.waitForRun();

    EXPECT_TRUE(isSorted());
    EXPECT_TRUE(testing::exists(photo));
    EXPECT_TRUE(settings->boolean("opt_dryRun"));
}

TEST_F(RunFlowTest, WhatIsChangedAfterTheQuestionDoesNotChangeTheRun) {
    flow.askRun();
    set("opt_namingStyle", "original");
    settings->setValue(keys::kDestPath, library.makeFolder("elsewhere"));
    flow.confirmRun();
    engine.waitForRun();
    EXPECT_TRUE(isSorted());
}

TEST_F(RunFlowTest, EveryAskedRunHasAnIdentityOfItsOwn) {
    flow.askRun();
    const auto first = flow.pendingRun()->id;
    flow.dismissRun();
    flow.askRun();
    EXPECT_NE(flow.pendingRun()->id, first);
}

TEST_F(RunFlowTest, ADismissedRunIsForgotten) {
    flow.askRun();
    flow.dismissRun();
    EXPECT_FALSE(flow.isRunAsked());
    flow.confirmRun();
    flow.switchToDryRun();
    EXPECT_FALSE(engine->hasTask());
}

TEST_F(RunFlowTest, SwitchingToADryRunStays) {
    set("opt_dryRun", false);

    flow.askRun();
    flow.switchToDryRun();
    EXPECT_FALSE(flow.isRunAsked());
    engine.waitForRun();

    EXPECT_TRUE(isPlanned());
    EXPECT_FALSE(isSorted());
    EXPECT_TRUE(settings->boolean("opt_dryRun"));
}

TEST_F(RunFlowTest, ARunHasTheRenameRules) {
    flow.setRenameRules({{Uuid::random(), "trip", "Voyage", true}, {Uuid::random(), "x", "y", false}});
    EXPECT_EQ(flow.activeRules(), 1U);
    flow.askRun();
    flow.confirmRun();
    engine.waitForRun();
    EXPECT_TRUE(testing::exists(library / "out/2023/08 - August/Voyage/2023-08-14_000000_IMG_20230814_143021.jpg"));
}

TEST_F(RunFlowTest, AskingForARunMakesAnEstimateThatMayComeLater) {
    flow.askRun();
    EXPECT_EQ(flow.estimate(), std::nullopt);
    ASSERT_TRUE(spinUntil([&] { return flow.estimate().has_value(); }));
    EXPECT_EQ(flow.estimate()->fileCount, 1);
    EXPECT_TRUE(flow.isRunAsked());
}

TEST_F(RunFlowTest, ADryRunAndItsEstimateGoSideBySide) {
    flow.askDryRun();
    flow.startDryRun();
    EXPECT_TRUE(engine->hasTask());
    EXPECT_EQ(flow.estimate(), std::nullopt);
    EXPECT_TRUE(spinUntil([&] { return flow.estimate().has_value(); }));
    engine.waitForRun();
}

TEST_F(RunFlowTest, TheButtonMakesOneEstimateAtATime) {
    ASSERT_TRUE(flow.canEstimate());
    flow.makeEstimate();
    EXPECT_TRUE(flow.isEstimating());
    EXPECT_FALSE(flow.canEstimate());
    ASSERT_TRUE(spinUntil([&] { return !flow.isEstimating(); }));
    EXPECT_EQ(flow.estimate()->fileCount, 1);
    EXPECT_TRUE(flow.canEstimate());
}

TEST_F(RunFlowTest, ThereIsNothingToEstimateWithoutSources) {
    sources.clear();
    EXPECT_FALSE(flow.canEstimate());
    flow.makeEstimate();
    EXPECT_FALSE(flow.isEstimating());
}

TEST_F(RunFlowTest, AnOlderEstimateDoesNotReplaceANewerOne) {
    flow.makeEstimate();
    for (int i = 0; i < 3; ++i)
        library.write("in/more" + std::to_string(i) + ".jpg");
    flow.askRun();
    ASSERT_TRUE(spinUntil([&] { return flow.estimate().has_value(); }));
    EXPECT_EQ(flow.estimate()->fileCount, 4);
    EXPECT_FALSE(flow.isEstimating());
}

TEST_F(RunFlowTest, ARunCanBeCancelled) {
    for (int i = 0; i < 400; ++i)
        library.write("in/" + std::to_string(i) + "/IMG_20230814_143021.jpg", std::to_string(i));
    flow.askRun();
    flow.confirmRun();
    ASSERT_TRUE(spinUntil([&] { return flow.canCancel(); }));
    flow.cancelRun();
    engine.waitForRun();
    EXPECT_FALSE(flow.canCancel());
    EXPECT_THAT(engine.state().statusText, ::testing::HasSubstr("ancel"));
}

}  // namespace
}  // namespace vellomar
