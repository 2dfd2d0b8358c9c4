#include <algorithm>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/RunSummary.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

constexpr const char* kRule = "═══════════════════════════════════════════";
constexpr const char* kThinRule = "───────────────────────────────────────────";

constexpr RunSummary kLocalRun = {.processed = 3, .total = 4, .bytes = 10'240, .elapsed = 90};

// The lines from the first to the last of those given, both included.
std::vector<std::string> linesBetween(const std::vector<std::string>& lines, std::string_view first,
                                      std::string_view last) {
    const auto begin = std::ranges::find(lines, first);
    const auto end = std::find(begin, lines.end(), last);
    return {begin, end == lines.end() ? end : end + 1};
}

TEST(RunSummary, ARunWithoutDecisionsHasFiguresAlone) {
    EXPECT_THAT(summaryLines(kLocalRun, {}), ElementsAre("", kRule, "  PERFORMANCE SUMMARY", kRule,  //
                                                         "  Files processed:    3 of 4",             //
                                                         "  Total data:         10.0 KB",            //
                                                         "  Elapsed time:       1m 30s",             //
                                                         "  Avg throughput:     113 B/s",            //
                                                         "  Avg file size:      3.3 KB",             //
                                                         "  Files/second:       0.0",                //
                                                         "  Storage mode:       Local", kRule, ""));
}

TEST(RunSummary, EveryPartStandsInItsOrder) {
    LibraryStats stats;
    stats.totalFiles = 3;
    stats.dateSourceBreakdown = {{"EXIF", 1}, {"Filename", 2}};
    stats.byExtension = {{"heic", 1}, {"jpg", 2}};
    auto run = kLocalRun;
    run.elapsed = 1.5;
    run.storageIsNetwork = true;
    run.duplicates = 2;
    run.verifyFailures = 1;
    EXPECT_THAT(summaryLines(run, stats),
                ElementsAre("", kRule, "  PERFORMANCE SUMMARY", kRule,                       //
                            "  Files processed:    3 of 4",                                  //
                            "  Total data:         10.0 KB",                                 //
                            "  Elapsed time:       1s",                                      //
                            "  Avg throughput:     6.7 KB/s",                                //
                            "  Avg file size:      3.3 KB",                                  //
                            "  Files/second:       2.0",                                     //
                            "  Storage mode:       NAS (network)",                           //
                            "  Note: NAS throughput limited by per-file overhead,",          //
                            "  metadata lookups, and SMB protocol latency.",                 //
                            kThinRule, "  Date sources:", "    Filename: 2", "    EXIF: 1",  //
                            "  File types:", "    .jpg: 2", "    .heic: 1",                  //
                            "  Duplicates found:   2",                                       //
                            "  Verify failures:    1", kRule, ""));
}

TEST(RunSummary, RatesOfARunThatTookNoTimeAreZero) {
    for (const double elapsed : {0.0, -3.0}) {
        auto run = kLocalRun;
        run.elapsed = elapsed;
        const auto lines = summaryLines(run, {});
        EXPECT_THAT(lines, Contains("  Avg throughput:     0 B/s")) << elapsed;
        EXPECT_THAT(lines, Contains("  Files/second:       0.0")) << elapsed;
    }
}

TEST(RunSummary, ARateBeyondAllNumbersIsTheLargest) {
    auto run = kLocalRun;
    run.bytes = std::numeric_limits<std::int64_t>::max();
    run.elapsed = 1e-9;
    EXPECT_THAT(summaryLines(run, {}), Contains("  Avg throughput:     8589934592.00 GB/s"));
}

TEST(RunSummary, WithoutFilesTheAverageSizeIsZero) {
    auto run = kLocalRun;
    run.processed = 0;
    EXPECT_THAT(summaryLines(run, {}), Contains("  Avg file size:      0 B"));
}

TEST(RunSummary, AveragesAreCutAndNotRounded) {
    const RunSummary run = {.processed = 2, .total = 2, .bytes = 1'999, .elapsed = 2};
    const auto lines = summaryLines(run, {});
    EXPECT_THAT(lines, Contains("  Avg file size:      999 B"));
    EXPECT_THAT(lines, Contains("  Avg throughput:     999 B/s"));
}

TEST(RunSummary, TenFileTypesAtMostTheMostFrequentFirst) {
    LibraryStats stats;
    stats.totalFiles = 78;
    for (int i = 1; i <= 12; ++i)
        stats.byExtension["e" + std::to_string(i)] = i;
    EXPECT_THAT(linesBetween(summaryLines(kLocalRun, stats), "  File types:", kRule),
                ElementsAre("  File types:", "    .e12: 12", "    .e11: 11", "    .e10: 10", "    .e9: 9", "    .e8: 8",
                            "    .e7: 7", "    .e6: 6", "    .e5: 5", "    .e4: 4", "    .e3: 3", kRule));
}

TEST(RunSummary, EveryDateSourceIsListedAndEqualCountsByTheAlphabet) {
    LibraryStats stats;
    stats.totalFiles = 1;
    for (const char* source : {"c", "a", "b", "d", "e", "f", "g", "h", "i", "j", "k"})
        stats.dateSourceBreakdown[source] = 1;
    stats.dateSourceBreakdown["z"] = 2;
    const auto lines = linesBetween(summaryLines(kLocalRun, stats), "  Date sources:", "  File types:");
    ASSERT_EQ(lines.size(), 14U);
    EXPECT_EQ(lines[1], "    z: 2");
    EXPECT_EQ(lines[2], "    a: 1");
    EXPECT_EQ(lines[12], "    k: 1");
}

TEST(RunSummary, WithoutDuplicatesOrFailuresTheirLinesAreAbsent) {
    const auto lines = summaryLines(kLocalRun, {});
    EXPECT_THAT(lines, Not(Contains(::testing::HasSubstr("Duplicates"))));
    EXPECT_THAT(lines, Not(Contains(::testing::HasSubstr("Verify"))));
}

TEST(RunSummary, TheNotificationTellsWhatKindOfRunIsComplete) {
    EXPECT_EQ(notificationTitle(true), "Vellomar – Dry Run Complete");
    EXPECT_EQ(notificationTitle(false), "Vellomar – Sort Complete");
}

TEST(RunSummary, TheNotificationCountsFiles) {
    EXPECT_EQ(notificationBody(0), "0 files processed.");
    EXPECT_EQ(notificationBody(1), "1 file processed.");
    EXPECT_EQ(notificationBody(2), "2 files processed.");
    EXPECT_EQ(notificationBody(300'000), "300000 files processed.");
}

}  // namespace
}  // namespace vellomar
