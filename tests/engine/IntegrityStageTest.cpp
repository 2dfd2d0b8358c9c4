// The integrity check as a part of a whole run.
#include <algorithm>
#include <filesystem>
#include <functional>

#include <gmock/gmock.h>

#include "engine/RunFixture.h"
#include "support/ScopedTimeZone.h"
#include "support/VolumeOfItsOwn.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::StartsWith;

// A disk with as much room as its test says.
class MeasuredVolume final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::int64_t> availableBytes(const std::string& path) override {
        asked.push_back(path);
        if (onAsked) onAsked();
        return free;
    }
    [[nodiscard]] Expected<bool> volumeIsReadOnly(const std::string& /*path*/) override { return isReadOnly; }

    std::int64_t free = 1'000'000;
    bool isReadOnly = false;
    std::vector<std::string> asked;
    std::function<void()> onAsked;
};

class IntegrityStage : public RunTest {
protected:
    IntegrityStage() { harness.engine = newEngine(); }
    ~IntegrityStage() override { harness.engine.reset(); }  // before its disk goes

    std::unique_ptr<OrganizerEngine> newEngine() {
        auto engine = std::make_unique<OrganizerEngine>(harness.servicesFor({.fileSystem = &volume, .clock = &clock}),
                                                        &harness.observer);
        harness.observer.state = &engine->state();
        return engine;
    }

    // The lines between the scan and the first file.
    [[nodiscard]] std::vector<std::string> integrityLinesOfLog() const {
        const auto first = std::ranges::find(log(), "⚙ Dest   scoped access granted: true");
        const auto last = std::ranges::find_if(log(), [](const auto& line) { return line.starts_with("Total files"); });
        return first < last ? std::vector<std::string>(first + 1, last) : std::vector<std::string>();
    }

    testing::ScopedTimeZone zone{"UTC"};
    MeasuredVolume volume{fileSystem};
};

TEST_F(IntegrityStage, StandsBetweenTheScanAndTheSearchForPairs) {
    photo("IMG_1.JPG", "1");
    photo("img_1.dng", "2");
    run(dryOptions());
    EXPECT_THAT(integrityLinesOfLog(), ElementsAre("✓ Integrity check passed — 2 files OK",
                                                   "✓ Found 1 RAW+JPEG pair(s) — will keep together"));
    EXPECT_THAT(harness.observer.statusHistory,
                ElementsAre("Scanning...", "Scanning…", "Checking integrity...", "Done"));
    EXPECT_EQ(harness.state().integrityReport, (IntegrityReport{{}, {}, {}, false, false, 2}));
    EXPECT_THAT(volume.asked, ElementsAre(dest));
}

TEST_F(IntegrityStage, IsLeftOutOnNetworkStorage) {
    photo("20230814_143021.jpg", "");
    auto options = dryOptions();
    options.storageIsNetwork = true;
    run(options);
    EXPECT_THAT(integrityLinesOfLog(), ElementsAre("⏭ Integrity check skipped — NAS storage mode selected"));
    EXPECT_THAT(harness.observer.statusHistory, Not(Contains("Checking integrity...")));
    EXPECT_EQ(harness.state().integrityReport, IntegrityReport{});
    EXPECT_TRUE(volume.asked.empty());
}

TEST_F(IntegrityStage, FindingNothingComesBeforeIt) {
    run(dryOptions());
    EXPECT_THAT(harness.observer.statusHistory, Not(Contains("Checking integrity...")));
    EXPECT_TRUE(volume.asked.empty());
}

TEST_F(IntegrityStage, NeedsRoomForFilesThatTheSwitchesOrAResumeDrop) {
    photo("20230814_143021.jpg", "12345");
    run(copyOptions());
    photo("20230815_143021.jpg", "123");
    photo("film.mov", "1234567");
    photo("junk.tmp", "1234567890");
    auto options = copyOptions();
    options.resumeFromManifest = true;
    options.dryRun = true;
    for (const auto& [free, isInsufficient] : {std::pair(14, true), std::pair(15, false)}) {
        volume.free = free;
        run(options);
        EXPECT_EQ(harness.state().integrityReport, (IntegrityReport{{}, {}, {}, false, isInsufficient, 1}));
    }
}

TEST_F(IntegrityStage, AMoveOnTheSameVolumeCountsAsIfItNeededTheRoom) {
    photo("20230814_143021.jpg", "12345");
    volume.free = 4;
    run(moveOptions());
    EXPECT_TRUE(harness.state().integrityReport.insufficientSpace);
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Moved: ")));
}

TEST_F(IntegrityStage, IssuesAreToldAndStopNothing) {
    photo("20230814_143021.jpg", "");
    photo("a/20230815_143021.jpg", "12345");
    volume.free = 4;
    volume.isReadOnly = true;
    run(moveOptions());
    EXPECT_THAT(integrityLinesOfLog(),
                ElementsAre("⚠ Integrity issues found:", "  ✗ Source volume is read-only (safe for copy, not move)",
                            "  ✗ Insufficient space on destination", "  ✗ Suspected corrupt: 20230814_143021.jpg"));
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Moved: "), StartsWith("✓ Moved: ")));
    EXPECT_EQ(harness.state().statusText, "Done");
    EXPECT_EQ(harness.state().integrityReport, (IntegrityReport{{}, {}, {"20230814_143021.jpg"}, true, true, 2}));
}

TEST_F(IntegrityStage, AReadOnlySourceDoesNotBotherACopyRun) {
    photo("20230814_143021.jpg", "1");
    volume.isReadOnly = true;
    run(copyOptions());
    EXPECT_THAT(integrityLinesOfLog(), ElementsAre("✓ Integrity check passed — 1 files OK"));
}

TEST_F(IntegrityStage, TheNextRunStartsWithAnEmptyReport) {
    photo("20230814_143021.jpg", "");
    run(dryOptions());
    EXPECT_EQ(harness.state().integrityReport.suspectedCorrupt.size(), 1);
    std::filesystem::remove_all(source);
    run(dryOptions());
    EXPECT_EQ(harness.state().integrityReport, IntegrityReport{});
}

TEST_F(IntegrityStage, ACancelEndsItBetweenTwoStepsAndThenTheRun) {
    photo("20230814_143021.jpg", "");
    harness.cancelWhenStatus("Checking integrity...");
    run(copyOptions());
    EXPECT_TRUE(volume.asked.empty());
    EXPECT_EQ(harness.state().integrityReport, (IntegrityReport{{}, {}, {}, false, false, 1}));
    EXPECT_THAT(integrityLinesOfLog(), ElementsAre("✓ Integrity check passed — 1 files OK"));
    EXPECT_THAT(fileLines(), ElementsAre("Cancellation requested. Stopping...", "Cancelled before post-processing."));
}

TEST_F(IntegrityStage, ItsTimeIsNotTheRunsTime) {
    photo("20230814_143021.jpg", "1");
    volume.onAsked = [&] { clock.advance(std::chrono::seconds(100)); };
    run(dryOptions());
    EXPECT_TRUE(hasLine("  Elapsed time:       0s"));
}

TEST_F(IntegrityStage, AReadOnlyVolumeIsToldBeforeAMoveFailsOnIt) {
    constexpr std::size_t kRoom = 1 << 20;
    const auto error = testing::withVolumeOfItsOwn(kRoom, [&](const testing::VolumeOfItsOwn& card) {
        std::filesystem::copy_file(folder.write("one", "12345"), card.path() + "/20230814_143021.jpg");
        card.makeReadOnly();
        testing::EngineHarness onCard({.fileSystem = &fileSystem, .clock = &clock});
        onCard.run({card.path()}, dest, moveOptions());
        const auto& lines = onCard.observer.allLogLines;
        EXPECT_THAT(lines, Contains("  ✗ Source volume is read-only (safe for copy, not move)"));
        EXPECT_TRUE(onCard.state().integrityReport.readOnlySource);
        EXPECT_EQ(testing::contentOf(card.path() + "/20230814_143021.jpg"), "12345");
        onCard.observer.allLogLines.clear();
        onCard.run({card.path()}, dest, copyOptions());
        EXPECT_THAT(lines, Contains("✓ Integrity check passed — 1 files OK"));
    });
    EXPECT_THAT(error, testing::doneOrForbidden());
}

TEST_F(IntegrityStage, ADestinationThatIsFullIsTakenForOneThatSaysNothing) {
    photo("20230814_143021.jpg", "12345");
    volume.free = 0;
    run(dryOptions());
    EXPECT_THAT(integrityLinesOfLog(), ElementsAre("✓ Integrity check passed — 1 files OK"));
}

}  // namespace
}  // namespace vellomar
