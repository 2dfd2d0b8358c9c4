#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <unistd.h>

#include "engine/RunFixture.h"
#include "engine/RunPipeline.h"
#include "platform/FileDigest.h"
#include "support/ScopedTimeZone.h"
#include "undo/ManifestFiles.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class RunPipelineTest : public RunTest {
protected:
    testing::ScopedTimeZone zone{"UTC"};
};

TEST_F(RunPipelineTest, ADryRunTellsEverythingAndChangesNothing) {
    const auto path = photo("Italy/Day 1/20230814_143021.JPG", "12345");
    run(dryOptions());

    const auto destination = dest + "/2023/08 - August/Italy/2023-08-14_143021_20230814_143021.jpg";
    const auto decision =
        "kind=Filename; strong=Y; date=2023-08-14 14:30:21; first='Italy'; tail='Italy\\Day 1'; dest='" + destination +
        "'";
    EXPECT_THAT(
        log(),
        ElementsAre("⚙ Source 1/1: " + source, "  scoped access: true", "  exists: true", "⚙ Dest URL:   " + dest,
                    "⚙ Dest   scoped access granted: true", "✓ Integrity check passed — 1 files OK", "Total files: 1",
                    "chosen=Filename(70); candidates=[Filename(70)=2023-08-14 14:30:21; "
                    "FS ModificationDate(20)=2023-09-01 12:00:00]",
                    "[DRY] Copy: " + path + " -> " + destination, "No duplicates detected.",
                    "Preview plan written: " + dest + "/_preview_plan.csv", "",
                    "═══════════════════════════════════════════", "  PERFORMANCE SUMMARY",
                    "═══════════════════════════════════════════", "  Files processed:    1 of 1",
                    "  Total data:         5 B", "  Elapsed time:       0s", "  Avg throughput:     0 B/s",
                    "  Avg file size:      5 B", "  Files/second:       0.0", "  Storage mode:       Local",
                    "───────────────────────────────────────────", "  Date sources:", "    Filename: 1",
                    "  File types:", "    .jpg: 1", "═══════════════════════════════════════════", ""));
    EXPECT_THAT(harness.observer.statusHistory,
                ElementsAre("Scanning...", "Scanning…", "Checking integrity...", "Done"));
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0.0, 1.0));

    const auto& state = harness.state();
    EXPECT_FALSE(state.isRunning);
    EXPECT_EQ(state.totalFilesScanned, 1);
    EXPECT_EQ(state.mediaBreakdown, (MediaBreakdown{1, 0, 0}));
    EXPECT_EQ(state.bytesProcessed, 5);
    EXPECT_EQ(state.bytesPerSecond, 0);
    ASSERT_EQ(state.previewRows.size(), 1);
    const auto& row = state.previewRows.front();
    EXPECT_EQ(row.source, path);
    EXPECT_EQ(row.destination, destination);
    EXPECT_EQ(row.action, "COPY->" + destination);
    EXPECT_EQ(row.resolvedDate, "2023-08-14 14:30:21");
    EXPECT_EQ(row.decision, decision);
    EXPECT_EQ(row.cameraModel, "—");
    LibraryStats stats;
    stats.totalFiles = 1;
    stats.totalBytes = 5;
    stats.byYear["2023"] = 1;
    stats.byExtension["jpg"] = 1;
    stats.dateSourceBreakdown["Filename"] = 1;
    EXPECT_EQ(state.libraryStats, stats);
    EXPECT_EQ(state.integrityReport, (IntegrityReport{{}, {}, {}, false, false, 1}));

    EXPECT_THAT(filesBelow(dest), ElementsAre("_preview_plan.csv"));
    EXPECT_EQ(testing::contentOf(dest + "/_preview_plan.csv"), "source,destination,action,resolved_date,decision\n" +
                                                                   path + "," + destination + ",COPY->" + destination +
                                                                   ",2023-08-14 14:30:21," + decision + "\n");
    EXPECT_THAT(filesBelow(source), ElementsAre("Italy/Day 1/20230814_143021.JPG"));

    const auto notification = harness.notifications.last();
    ASSERT_TRUE(notification);
    EXPECT_EQ(notification->title, "Vellomar – Dry Run Complete");
    EXPECT_EQ(notification->body, "1 file processed.");
}

TEST_F(RunPipelineTest, ACopyRunLeavesTheTreeAndAManifest) {
    const auto path = photo("20230814_143021.jpg", "12345");
    auto options = copyOptions();
    options.computeHashForDuplicates = true;
    run(options);

    const auto destination = dest + "/2023/08 - August/2023-08-14_143021_20230814_143021.jpg";
    EXPECT_THAT(fileLines(), ElementsAre("✓ Copied: 20230814_143021.jpg → " + destination));
    EXPECT_TRUE(hasLine("Undo manifest saved: _vellomar_undo_2024-06-14_094107.json"));
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/08 - August/2023-08-14_143021_20230814_143021.jpg",
                                              "_vellomar_undo_2024-06-14_094107.json"));
    EXPECT_EQ(testing::contentOf(dest + "/_vellomar_undo_2024-06-14_094107.json"),
              "{\n"
              "  \"destRoot\": \"" +
                  dest +
                  "\",\n"
                  "  \"entries\": [\n"
                  "    {\n"
                  "      \"destination\": \"" +
                  destination +
                  "\",\n"
                  "      \"op\": \"copy\",\n"
                  "      \"sha256\": \"5994471abb01112afcc18159f6cc74b4f511b99806da59b3caf5a9c173cacfc5\",\n"
                  "      \"source\": \"" +
                  path +
                  "\",\n"
                  "      \"timestamp\": \"2024-06-14T09:41:07Z\"\n"
                  "    }\n"
                  "  ],\n"
                  "  \"runID\": \"2024-06-14T09:41:07\",\n"
                  "  \"sourceRoot\": \"" +
                  source +
                  "\"\n"
                  "}");
    EXPECT_EQ(harness.notifications.last()->title, "Vellomar – Sort Complete");
    EXPECT_EQ(testing::contentOf(path), "12345");
}

TEST_F(RunPipelineTest, NothingFoundEndsTheRunWithoutASummary) {
    run(copyOptions());
    EXPECT_EQ(log().back(), "No files found under 1 source folder(s)");
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_EQ(harness.state().statusText, "Scanning…");
    EXPECT_FALSE(harness.notifications.last());
    EXPECT_THAT(filesBelow(dest), IsEmpty());
}

TEST_F(RunPipelineTest, AnEmptySourceListIsToldAsSuch) {
    harness.run({}, dest, copyOptions());
    EXPECT_THAT(log(), ElementsAre("⚙ Dest URL:   " + dest, "⚙ Dest   scoped access granted: true",
                                   "No files found under 0 source folder(s)"));
}

TEST_F(RunPipelineTest, TellsEachSourceAndWhetherItExists) {
    const auto other = folder.makeFolder("other");
    harness.run({source + "/", folder / "missing", other}, dest + "//", dryOptions());
    EXPECT_THAT(log(), ElementsAre("⚙ Source 1/3: " + source, "  scoped access: true", "  exists: true",
                                   "⚙ Source 2/3: " + (folder / "missing"), "  scoped access: true", "  exists: false",
                                   "⚙ Source 3/3: " + other, "  scoped access: true", "  exists: true",
                                   "⚙ Dest URL:   " + dest, "⚙ Dest   scoped access granted: true",
                                   "Failed to enumerate source: " + (folder / "missing"),
                                   "No files found under 3 source folder(s)"));
}

TEST_F(RunPipelineTest, JoinsTheSourcesInTheManifest) {
    photo("20230814_143021.jpg", "1");
    const auto other = folder.makeFolder("other");
    harness.run({source, other}, dest, copyOptions());
    const auto manifests = loadManifests(disk, dest);
    ASSERT_EQ(manifests.size(), 1);
    EXPECT_EQ(manifests[0].sourceRoot, source + "|" + other);
    EXPECT_EQ(manifests[0].destRoot, dest);
}

TEST_F(RunPipelineTest, NetworkModeSkipsTheIntegrityCheckAndSaysSo) {
    photo("20230814_143021.jpg", "1");
    auto options = dryOptions();
    options.storageIsNetwork = true;
    run(options);
    EXPECT_TRUE(hasLine("⏭ Integrity check skipped — NAS storage mode selected"));
    EXPECT_TRUE(hasLine("  Storage mode:       NAS (network)"));
    EXPECT_TRUE(hasLine("  Note: NAS throughput limited by per-file overhead,"));
    EXPECT_TRUE(hasLine("  metadata lookups, and SMB protocol latency."));
    EXPECT_TRUE(hasLine("chosen=Filename(70); candidates=[Filename(70)=2023-08-14 14:30:21]"));
}

TEST_F(RunPipelineTest, FindsPairsWhenEitherOptionWantsThem) {
    photo("IMG_1.JPG", "1");
    photo("img_1.dng", "2");
    auto options = dryOptions();
    run(options);
    EXPECT_TRUE(hasLine("✓ Found 1 RAW+JPEG pair(s) — will keep together"));
    EXPECT_EQ(harness.state().rawJpegPairs, 1);
    options.keepRawJpegPairs = false;
    harness.observer.allLogLines.clear();
    run(options);
    EXPECT_TRUE(hasLine("✓ Found 1 RAW+JPEG pair(s) — will keep together"));
    options.moveSidecars = false;
    harness.observer.allLogLines.clear();
    run(options);
    EXPECT_FALSE(hasLine("✓ Found 1 RAW+JPEG pair(s) — will keep together"));
    EXPECT_EQ(harness.state().rawJpegPairs, 0);
}

TEST_F(RunPipelineTest, UnderTwoHundredFilesTheLoopPublishesNoProgress) {
    for (int i = 0; i < 199; ++i)
        photo("20230814_143021_" + std::to_string(i) + ".jpg", "1");
    run(dryOptions());
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0.0, 1.0));
}

TEST_F(RunPipelineTest, EveryTwoHundredFilesTheLoopPublishesProgress) {
    for (int i = 0; i < 450; ++i)
        photo("20230814_143021_" + std::to_string(i) + ".jpg", "12");
    run(dryOptions());
    EXPECT_THAT(harness.observer.progressHistory, ElementsAre(0.0, 200.0 / 450, 400.0 / 450, 1.0));
    EXPECT_THAT(harness.observer.statusHistory, ElementsAre("Scanning...", "Scanning…", "Checking integrity...",
                                                            "200 of 450 — ETA 0s", "400 of 450 — ETA 0s", "Done"));
    EXPECT_EQ(harness.state().bytesProcessed, 900);
    EXPECT_EQ(harness.notifications.last()->body, "450 files processed.");
}

TEST_F(RunPipelineTest, TheScanReportsEveryFiveHundredFiles) {
    for (int i = 0; i < 1'000; ++i)
        photo("20230814_143021_" + std::to_string(i) + ".jpg", "");
    run(dryOptions());
    EXPECT_THAT(harness.observer.statusHistory, Contains("Scanning… 500 files found"));
    EXPECT_THAT(harness.observer.statusHistory, Contains("Scanning… 1000 files found"));
}

TEST_F(RunPipelineTest, ALargeRunCapsItsListsButNotItsStatistics) {
    constexpr int kFiles = 6'000;
    for (int i = 0; i < kFiles; ++i)
        folder.write("source/d" + std::to_string(i % 7) + "/20230814_143021_" + std::to_string(i) + ".jpg", "");
    run(dryOptions());
    const auto& state = harness.state();
    EXPECT_TRUE(state.previewRowsCapped);
    EXPECT_EQ(state.previewRows.size(), 5'000);
    EXPECT_EQ(state.libraryStats.totalFiles, kFiles);
    EXPECT_EQ(state.logLines.size(), 5'000);
    const auto plan = testing::contentOf(dest + "/_preview_plan.csv");
    EXPECT_EQ(std::ranges::count(plan, '\n'), 5'001);
    EXPECT_GT(log().size(), 2 * kFiles);
}

TEST_F(RunPipelineTest, ResumesBehindTheNewestManifestOnly) {
    const auto first = photo("20230814_143021.jpg", "1");
    run(copyOptions());
    const auto second = photo("20230815_143021.jpg", "2");
    clock.advance(std::chrono::seconds(5));
    auto options = copyOptions();
    options.resumeFromManifest = true;
    harness.observer.allLogLines.clear();
    run(options);
    EXPECT_TRUE(hasLine("Resuming: skipping 1 already-processed files from last run"));
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied: 20230815_143021.jpg")));
    // The newest manifest names the second file alone, so the first one is taken again.
    clock.advance(std::chrono::seconds(5));
    harness.observer.allLogLines.clear();
    run(options);
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied: 20230814_143021.jpg")));
}

TEST_F(RunPipelineTest, ResumingWithoutAManifestSaysNothing) {
    photo("20230814_143021.jpg", "1");
    auto options = copyOptions();
    options.resumeFromManifest = true;
    run(options);
    EXPECT_THAT(log(), Not(Contains(StartsWith("Resuming"))));
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied")));
}

TEST_F(RunPipelineTest, AResumeSkipsExactPathsOnly) {
    const auto inside = photo("a/20230814_143021.jpg", "1");
    run(copyOptions());
    clock.advance(std::chrono::seconds(1));
    auto options = copyOptions();
    options.resumeFromManifest = true;
    std::filesystem::create_directory_symlink(source, folder / "alias");
    harness.observer.allLogLines.clear();
    harness.run({folder / "alias"}, dest, options);
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied")));
}

TEST_F(RunPipelineTest, ARunThatTransfersNothingLeavesNoManifest) {
    photo("no date.jpg", "1");
    run(moveOptions());
    EXPECT_THAT(fileLines(), ElementsAre("⚠ Skipped move (weak date score): no date.jpg"));
    EXPECT_THAT(filesBelow(dest), IsEmpty());
    EXPECT_EQ(harness.state().previewRows.at(0).action.substr(0, 7), "MOVE->/");
}

TEST_F(RunPipelineTest, AFailedPlanOrManifestIsClaimedAllTheSame) {
    photo("20230814_143021.jpg", "1");
    harness.run({source}, folder / "missing", dryOptions());
    EXPECT_TRUE(hasLine("Preview plan written: " + (folder / "missing/_preview_plan.csv")));
    EXPECT_FALSE(testing::exists(folder / "missing"));
}

TEST_F(RunPipelineTest, ACollisionWarnsInADryRunAndKeepsTheDestination) {
    photo("a/20230814_143021.jpg", "1");
    photo("b/20230814_143021.jpg", "22");
    auto options = dryOptions();
    options.namingStyle = NamingStyle::archival;
    run(options);
    EXPECT_EQ(std::ranges::count(log(), "⚠ Path collision — renaming to avoid overwrite: 2023-08-14_143021.jpg"), 1);
    const auto& rows = harness.state().previewRows;
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].destination, rows[1].destination);
}

TEST_F(RunPipelineTest, ACollisionInARealRunKeepsBothFiles) {
    photo("a/20230814_143021.jpg", "1");
    photo("b/20230814_143021.jpg", "22");
    auto options = copyOptions();
    options.namingStyle = NamingStyle::archival;
    run(options);
    EXPECT_TRUE(hasLine("⚠ Path collision — renaming to avoid overwrite: 2023-08-14_143021 (1).jpg"));
    EXPECT_THAT(filesBelow(dest),
                ElementsAre("2023/2023-08-14/2023-08-14_143021 (1).jpg", "2023/2023-08-14/2023-08-14_143021.jpg",
                            "_vellomar_undo_2024-06-14_094107.json"));
}

TEST_F(RunPipelineTest, TakesUpTheRulesOfTheEngine) {
    photo("Big Island HAWAII trip/20230814_143021.jpg", "1");
    FolderRenameRule rule;
    rule.matchText = "hawaii";
    rule.replacement = "Hawaii 2019";
    harness.engine->setRenameRules({rule});
    run(copyOptions());
    EXPECT_THAT(filesBelow(dest), Contains("2023/08 - August/Hawaii 2019/2023-08-14_143021_20230814_143021.jpg"));
}

TEST_F(RunPipelineTest, ABlankTemplateMakesTheFolderItselfTheDestination) {
    photo("20230814_143021.jpg", "1");
    auto options = copyOptions();
    options.namingStyle = NamingStyle::custom;
    options.customFormat = "   ";
    options.conflictPolicy = ConflictPolicy::overwrite;
    run(options);
    EXPECT_THAT(fileLines(),
                ElementsAre(StartsWith("✗ Copy failed [20230814_143021.jpg]: Is a directory (domain=POSIX"),
                            "  exists=true readable=true destParentWritable=true"));
    EXPECT_TRUE(testing::exists(dest));
    EXPECT_FALSE(testing::exists(dest + ".__partial"));
}

TEST_F(RunPipelineTest, AnEmptyTemplateMeansTheDefaultOne) {
    photo("20230814_143021.jpg", "1");
    auto options = copyOptions();
    options.namingStyle = NamingStyle::custom;
    options.customFormat = "";
    run(options);
    EXPECT_THAT(filesBelow(dest), Contains("2023/08 - August/2023-08-14_143021_20230814_143021.jpg"));
}

TEST_F(RunPipelineTest, ASourceInsideTheDestinationEnds) {
    const auto inside = folder.makeFolder("dest/incoming");
    folder.write("dest/incoming/20230814_143021.jpg", "1");
    harness.run({inside}, dest, copyOptions());
    EXPECT_THAT(fileLines(), ElementsAre(StartsWith("✓ Copied: 20230814_143021.jpg")));
    harness.run({dest}, dest, copyOptions());
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_TRUE(testing::exists(inside + "/20230814_143021.jpg"));
}

TEST_F(RunPipelineTest, HoldsTheDesktopAwakeForAsLongAsItRuns) {
    photo("20230814_143021.jpg", "1");
    int holdsDuringRun = 0;
    harness.observer.onLine = [&](std::string_view) { holdsDuringRun = harness.sleepInhibitor.holds(); };
    run(copyOptions());
    EXPECT_EQ(holdsDuringRun, 1);
    EXPECT_EQ(harness.sleepInhibitor.holds(), 0);
    EXPECT_EQ(harness.sleepInhibitor.holdsEver(), 1);
}

TEST_F(RunPipelineTest, OddNamesComeThroughEveryFileThatARunLeaves) {
    const std::vector<std::string> names = {"caf\xE9 20230814_143021.jpg", "two\nlines 20230814_143022.jpg",
                                            " leading, \"quoted\" 20230814_143023.jpg", "ünï 20230814_143024.jpg"};
    for (const auto& name : names)
        photo("odd \xFF folder/" + name, name);
    run(dryOptions());
    const auto plan = testing::contentOf(dest + "/_preview_plan.csv");
    for (const auto& name : names)
        EXPECT_NE(plan.find(name), std::string::npos) << name;
    run(copyOptions());
    const auto manifest = loadNewestManifest(disk, dest);
    ASSERT_TRUE(manifest);
    ASSERT_EQ(manifest->entries.size(), names.size());
    for (const auto& entry : manifest->entries) {
        EXPECT_EQ(testing::contentOf(entry.destination), testing::contentOf(entry.source));
        EXPECT_EQ(sha256OfFile(disk, entry.destination), entry.sha256);
    }
}

TEST_F(RunPipelineTest, AFileFourThousandBytesDeepComesThrough) {
    constexpr std::size_t kDepth = 4'000;
    const std::string name = "20230814_143021.jpg";
    std::string relative = "deep";
    while (source.size() + relative.size() + name.size() + 8 < kDepth)
        relative += "/below";
    const auto path = photo(relative + "/" + name, "deep photo");
    ASSERT_GT(path.size(), kDepth - 10);
    run(dryOptions());
    EXPECT_NE(testing::contentOf(dest + "/_preview_plan.csv").find("\n" + path + ","), std::string::npos);
    run(copyOptions());
    const auto manifest = loadNewestManifest(disk, dest);
    ASSERT_TRUE(manifest);
    ASSERT_EQ(manifest->entries.size(), 1);
    EXPECT_EQ(manifest->entries[0].source, path);
    EXPECT_EQ(testing::contentOf(manifest->entries[0].destination), "deep photo");
    run(moveOptions());
    EXPECT_FALSE(testing::exists(path));
}

TEST_F(RunPipelineTest, ANameTooLongForItsPartialFileFailsAloneAndLosesNothing) {
    const auto longName = "20230814_143021" + std::string(236, 'n') + ".jpg";  // 255 bytes
    const auto path = photo(longName, "long");
    photo("20230815_143021.jpg", "short");
    auto options = copyOptions();
    options.namingStyle = NamingStyle::original;
    run(options);
    EXPECT_TRUE(hasLine("✗ Copy failed [" + longName + "]: File name too long (domain=POSIX code=36)"));
    EXPECT_TRUE(hasLine("  exists=true readable=true destParentWritable=true"));
    EXPECT_EQ(testing::contentOf(path), "long");
    EXPECT_THAT(filesBelow(dest), Contains("2023/08/20230815_143021.jpg"));
    auto moving = options;
    moving.moveOriginalsWhenReliable = true;
    run(moving);
    EXPECT_TRUE(hasLine("✗ Move failed [" + path + "] → [" + dest + "/2023/08/" + longName + "]: File name too long"));
    EXPECT_EQ(testing::contentOf(path), "long");
}

}  // namespace
}  // namespace vellomar
