#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <gmock/gmock.h>

#include "engine/DuplicateStage.h"
#include "engine/RunFixture.h"
#include "engine/StageFixture.h"
#include "platform/FileDigest.h"
#include "support/ForwardingFileSystem.h"
#include "support/ScopedTimeZone.h"

namespace vellomar {
namespace {

using ::testing::Contains;
using testing::contentOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kSkipped = "Duplicate report generation skipped (not a dry run).";

// Refuses what it is told to.
class RefusingFileSystem final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<void> removeFile(const std::string& path) override {
        return isRefusing ? systemFailure(EROFS) : real().removeFile(path);
    }
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        if (timesTaken > 0) {
            --timesTaken;
            static_cast<void>(real().createFile(to, NewFileAccess::usual));
        }
        return isRefusing ? systemFailure(EACCES) : real().renameWithoutReplacing(from, to);
    }

    bool isRefusing = false;
    int timesTaken = 0;  // how often somebody else takes a name right before a file is moved to it
};

class DuplicateStageTest : public StageTest {
protected:
    DuplicateStageTest() { request.options.dryRun = true; }

    void report() {
        perform([](const RunContext& context, const RunState& known) { reportDuplicates(context, known); });
    }

    // Of the log, what was done to the duplicates.
    [[nodiscard]] std::vector<std::string> actions() const {
        std::vector<std::string> lines;
        for (const auto& line : log())
            if (line.starts_with("♻") || line.starts_with("⚠")) lines.push_back(line);
        return lines;
    }

    // A file at the destination that the run placed there, with the hash of its content; returns its path.
    std::string placed(const std::string& relative, std::string_view content, std::int64_t dateSeconds = 0) {
        auto path = folder.write("dest/" + relative, content);
        processed(path, sha256OfFile(disk, path).value(), dateSeconds);
        return path;
    }

    void actWith(DuplicateAction action) {
        request.options.dryRun = false;
        request.options.duplicateAction = action;
    }

    static std::string hash(char c) { return std::string(64, c); }
    std::string reportPath = dest + "/_duplicates_report.csv";
};

TEST_F(DuplicateStageTest, WithoutHashesThereAreNoDuplicates) {
    processed(dest + "/a.jpg", "");
    report();
    EXPECT_THAT(log(), ElementsAre("No duplicates detected."));
    EXPECT_THAT(filesBelow(dest), IsEmpty());
}

TEST_F(DuplicateStageTest, WithoutGroupsNothingIsTouched) {
    for (const bool isDry : {true, false}) {
        SCOPED_TRACE(isDry);
        request.options.dryRun = isDry;
        request.options.duplicateAction = DuplicateAction::skip;
        main.published.set(PublishedField::duplicateDestPaths, &PublishedState::duplicateDestPaths, {"/as/it/was"});
        main.published.set(PublishedField::duplicateGroups, &PublishedState::duplicateGroups, {{"/as", {"/it/was"}}});
        processed(folder.write("dest/a.jpg"), hash('a'));
        processed(folder.write("dest/b.jpg"), hash('b'));
        observer.allLogLines.clear();
        report();
        EXPECT_THAT(log(), ElementsAre("No duplicates detected."));
        EXPECT_THAT(published().duplicateDestPaths, ElementsAre("/as/it/was"));
        EXPECT_EQ(published().duplicateGroups.size(), 1);
        EXPECT_THAT(filesBelow(dest), ElementsAre("a.jpg", "b.jpg"));
        state = RunState();
    }
}

TEST_F(DuplicateStageTest, ADryRunTellsPublishesAndLeavesAReport) {
    processed(dest + "/c.jpg", hash('b'), 30);
    processed(dest + "/b.jpg", hash('b'), 20);
    processed(dest + "/a.jpg", hash('b'), 30);
    processed(dest + "/y.jpg", hash('a'));
    processed(dest + "/x.jpg", hash('a'));
    processed(dest + "/lonely.jpg", hash('c'));
    report();
    EXPECT_THAT(log(), ElementsAre("Found 2 duplicate group(s).",
                                   "Duplicate group sha=aaaaaaaaaaaa count=2 canonical='" + dest + "/x.jpg'",
                                   "  dup: " + dest + "/y.jpg",
                                   "Duplicate group sha=bbbbbbbbbbbb count=3 canonical='" + dest + "/b.jpg'",
                                   "  dup: " + dest + "/a.jpg", "  dup: " + dest + "/c.jpg",
                                   "Duplicates report written: " + reportPath));
    EXPECT_EQ(contentOf(reportPath),
              "sha256,canonical,duplicate\n"
              "\"" +
                  hash('a') + "\",\"" + dest + "/x.jpg\",\"" + dest +
                  "/y.jpg\"\n"
                  "\"" +
                  hash('b') + "\",\"" + dest + "/b.jpg\",\"" + dest +
                  "/a.jpg\"\n"
                  "\"" +
                  hash('b') + "\",\"" + dest + "/b.jpg\",\"" + dest + "/c.jpg\"\n");
    EXPECT_THAT(filesBelow(dest), ElementsAre("_duplicates_report.csv"));
    EXPECT_THAT(published().duplicateDestPaths, ElementsAre(dest + "/a.jpg", dest + "/c.jpg", dest + "/y.jpg"));
    const auto& groups = published().duplicateGroups;
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups[0].canonical, dest + "/x.jpg");
    EXPECT_THAT(groups[0].duplicates, ElementsAre(dest + "/y.jpg"));
    EXPECT_EQ(groups[1].canonical, dest + "/b.jpg");
    EXPECT_THAT(groups[1].duplicates, ElementsAre(dest + "/a.jpg", dest + "/c.jpg"));
}

TEST_F(DuplicateStageTest, APathWithoutADateIsCanonical) {
    processed(dest + "/a.jpg", hash('a'), -5'000);
    state.hashGroups[hash('a')].emplace_back("/undated");
    report();
    EXPECT_EQ(published().duplicateGroups.at(0).canonical, "/undated");
}

TEST_F(DuplicateStageTest, ADryRunRemovesNothingWhateverTheAction) {
    placed("a.jpg", "twin");
    placed("b.jpg", "twin");
    for (const auto action : kDuplicateActions) {
        actWith(action);
        request.options.dryRun = true;
        report();
    }
    EXPECT_THAT(filesBelow(dest), ElementsAre("_duplicates_report.csv", "a.jpg", "b.jpg"));
    EXPECT_THAT(actions(), IsEmpty());
    EXPECT_THAT(log(), Not(Contains(kSkipped)));
}

TEST_F(DuplicateStageTest, ASecondReportReplacesTheFirst) {
    processed(dest + "/a.jpg", hash('a'));
    processed(dest + "/b.jpg", hash('a'));
    report();
    state = RunState();
    processed(dest + "/c.jpg", hash('c'));
    processed(dest + "/d.jpg", hash('c'));
    report();
    EXPECT_EQ(contentOf(reportPath),
              "sha256,canonical,duplicate\n\"" + hash('c') + "\",\"" + dest + "/c.jpg\",\"" + dest + "/d.jpg\"\n");
    EXPECT_THAT(published().duplicateDestPaths, ElementsAre(dest + "/d.jpg"));
}

TEST_F(DuplicateStageTest, AReportThatCannotBeWrittenIsToldAndTheGroupsArePublished) {
    request.dest = folder / "missing";
    processed("/d/a.jpg", hash('a'));
    processed("/d/b.jpg", hash('a'));
    report();
    EXPECT_EQ(log().back(), "Failed writing duplicates report: No such file or directory");
    EXPECT_THAT(published().duplicateDestPaths, ElementsAre("/d/b.jpg"));
}

TEST_F(DuplicateStageTest, OddPathsReachTheReportAsBytes) {
    processed(dest + "/a\", b.jpg", hash('a'));
    processed(dest + "/c\n\xFF.jpg", hash('a'));
    report();
    EXPECT_EQ(contentOf(reportPath), "sha256,canonical,duplicate\n\"" + hash('a') + "\",\"" + dest +
                                         "/a\"\", b.jpg\",\"" + dest + "/c\n\xFF.jpg\"\n");
    EXPECT_EQ(log().at(2), "  dup: " + dest + "/c\n\xFF.jpg");
}

TEST_F(DuplicateStageTest, LoggingAloneMovesNothing) {
    placed("a.jpg", "twin");
    const auto duplicate = placed("b.jpg", "twin");
    actWith(DuplicateAction::log);
    report();
    EXPECT_THAT(log(), ElementsAre("Found 1 duplicate group(s).",
                                   "Duplicate group sha=" + sha256OfFile(disk, duplicate)->substr(0, 12) +
                                       " count=2 canonical='" + dest + "/a.jpg'",
                                   "  dup: " + duplicate, kSkipped));
    EXPECT_THAT(filesBelow(dest), ElementsAre("a.jpg", "b.jpg"));
    EXPECT_THAT(published().duplicateDestPaths, ElementsAre(duplicate));
}

TEST_F(DuplicateStageTest, SkippingDeletesTheDuplicates) {
    placed("a.jpg", "twin", 5);
    placed("2023/b.jpg", "twin", 4);
    placed("c.jpg", "twin", 6);
    placed("d.jpg", "other");
    actWith(DuplicateAction::skip);
    report();
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: a.jpg", "♻ Removed duplicate: c.jpg"));
    EXPECT_EQ(log().back(), kSkipped);
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/b.jpg", "d.jpg"));
}

TEST_F(DuplicateStageTest, MovingPutsTheDuplicatesIntoTheirFolderUnderFreeNames) {
    placed("1/first.jpg", "twin", 1);
    placed("2/a.jpg", "twin", 2);
    placed("3/a.jpg", "twin", 3);
    actWith(DuplicateAction::moveToBin);
    report();
    EXPECT_THAT(actions(),
                ElementsAre("♻ Moved duplicate to _Duplicates: a.jpg", "♻ Moved duplicate to _Duplicates: a.jpg"));
    EXPECT_EQ(log().back(), kSkipped);
    EXPECT_THAT(filesBelow(dest), ElementsAre("1/first.jpg", "_Duplicates/a (1).jpg", "_Duplicates/a.jpg"));
}

// Not by group, in which "z.jpg" would come first.
TEST_F(DuplicateStageTest, TheDuplicatesOfAllGroupsAreTakenInTheOrderOfTheirPaths) {
    const std::vector<std::string> contents = {"one", "two"};
    placed("0/1.jpg", contents[0], 1);
    placed("0/2.jpg", contents[1], 1);
    const bool oneIsFirst = sha256OfFile(disk, dest + "/0/1.jpg") < sha256OfFile(disk, dest + "/0/2.jpg");
    placed("z.jpg", contents[oneIsFirst ? 0 : 1], 2);
    placed("m.jpg", contents[oneIsFirst ? 1 : 0], 2);
    actWith(DuplicateAction::skip);
    report();
    EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: m.jpg", "♻ Removed duplicate: z.jpg"));
}

TEST_F(DuplicateStageTest, WhatIsNotThereIsPassedOverInSilence) {
    const auto canonical = placed("a.jpg", "twin");
    const auto sha256 = sha256OfFile(disk, canonical).value();
    processed(dest + "/b.jpg", sha256);
    processed(canonical + "/below a file.jpg", sha256);
    std::filesystem::create_symlink("nowhere", dest + "/dangling.jpg");
    processed(dest + "/dangling.jpg", sha256);
    std::filesystem::create_symlink("loop.jpg", dest + "/loop.jpg");
    processed(dest + "/loop.jpg", sha256);
    for (const auto action : {DuplicateAction::skip, DuplicateAction::moveToBin}) {
        actWith(action);
        report();
    }
    EXPECT_THAT(actions(), IsEmpty());
    EXPECT_FALSE(testing::exists(dest + "/_Duplicates"));
}

TEST_F(DuplicateStageTest, AFailureIsToldAndTheOthersGoOn) {
    RefusingFileSystem refusing(disk);
    setFileSystem(refusing);
    placed("a.jpg", "twin");
    placed("b.jpg", "twin");
    placed("c.jpg", "twin");
    refusing.isRefusing = true;
    actWith(DuplicateAction::skip);
    report();
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: Read-only file system",
                                       "⚠ Could not remove duplicate: Read-only file system"));
    observer.allLogLines.clear();
    actWith(DuplicateAction::moveToBin);
    report();
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not move duplicate: Permission denied",
                                       "⚠ Could not move duplicate: Permission denied"));
    EXPECT_EQ(log().back(), kSkipped);
    EXPECT_THAT(filesBelow(dest), ElementsAre("a.jpg", "b.jpg", "c.jpg"));
}

TEST_F(DuplicateStageTest, AFolderThatCannotBeMadeIsToldByTheMove) {
    placed("a.jpg", "twin");
    placed("b.jpg", "twin");
    folder.write("dest/_Duplicates", "a file");
    actWith(DuplicateAction::moveToBin);
    report();
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not move duplicate: Not a directory"));
    EXPECT_THAT(filesBelow(dest), ElementsAre("_Duplicates", "a.jpg", "b.jpg"));
}

TEST_F(DuplicateStageTest, ANameThatIsTakenMeanwhileIsNotReplaced) {
    RefusingFileSystem taken(disk);
    setFileSystem(taken);
    placed("a.jpg", "twin");
    placed("b.jpg", "twin");
    taken.timesTaken = 2;
    actWith(DuplicateAction::moveToBin);
    report();
    EXPECT_THAT(actions(), ElementsAre("♻ Moved duplicate to _Duplicates: b.jpg"));
    EXPECT_EQ(contentOf(dest + "/_Duplicates/b.jpg"), "");
    EXPECT_EQ(contentOf(dest + "/_Duplicates/b (1).jpg"), "");
    EXPECT_EQ(contentOf(dest + "/_Duplicates/b (2).jpg"), "twin");
}

TEST_F(DuplicateStageTest, WhatCannotBeLookedAtIsNoSilentMatter) {
    class Unreadable final : public testing::ForwardingFileSystem {
    public:
        using ForwardingFileSystem::ForwardingFileSystem;
        [[nodiscard]] Expected<FileStatus> status(const std::string& path) override {
            return path.ends_with("b.jpg") ? systemFailure(EIO) : real().status(path);
        }
        [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
            return path.ends_with("b.jpg") ? systemFailure(EIO) : real().statusFollowingLinks(path);
        }
    };
    Unreadable unreadable(disk);
    setFileSystem(unreadable);
    placed("a.jpg", "twin");
    placed("b.jpg", "twin");
    actWith(DuplicateAction::skip);
    report();
    EXPECT_THAT(actions(), ElementsAre("⚠ Could not remove duplicate: Input/output error"));
}

// Two files of the run were to go there, and one of them did.
TEST_F(DuplicateStageTest, APathInTwoGroupsGoesIfItIsADuplicateInEither) {
    for (const std::string content : {"one", "two"}) {
        SCOPED_TRACE(content);
        state = RunState();
        observer.allLogLines.clear();
        placed("a.jpg", "one");
        placed("b.jpg", "two");
        const auto shared = folder.write("dest/c.jpg", content);
        processed(shared, sha256OfFile(disk, dest + "/a.jpg").value());
        processed(shared, sha256OfFile(disk, dest + "/b.jpg").value());
        actWith(DuplicateAction::skip);
        report();
        EXPECT_THAT(actions(), ElementsAre("♻ Removed duplicate: c.jpg"));
        EXPECT_THAT(filesBelow(dest), ElementsAre("a.jpg", "b.jpg"));
    }
}

TEST_F(DuplicateStageTest, AnEmptyFileIsADuplicateLikeAnyOther) {
    placed("a.jpg", "");
    placed("b.jpg", "");
    actWith(DuplicateAction::skip);
    report();
    EXPECT_THAT(filesBelow(dest), ElementsAre("a.jpg"));
}

// Whole runs.

using DuplicateRunTest = RunTest;

TEST_F(DuplicateRunTest, TheStageStandsBetweenTheManifestAndThePlan) {
    photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143021.jpg", "twin");
    photo("b/20230815_143021.jpg", "only");
    run(dryOptions());
    const auto found = std::ranges::find(log(), "Found 1 duplicate group(s).");
    ASSERT_GT(log().end() - found, 4);
    EXPECT_THAT(found[-1], StartsWith("[DRY] Copy: "));
    EXPECT_THAT(found[1], StartsWith("Duplicate group sha="));
    EXPECT_THAT(found[2], StartsWith("  dup: "));
    EXPECT_EQ(found[3], "Duplicates report written: " + dest + "/_duplicates_report.csv");
    EXPECT_EQ(found[4], "Preview plan written: " + dest + "/_preview_plan.csv");
    EXPECT_TRUE(hasLine("  Duplicates found:   1"));
    EXPECT_THAT(filesBelow(dest), ElementsAre("_duplicates_report.csv", "_preview_plan.csv"));

    harness.observer.allLogLines.clear();
    run(copyOptions());
    const auto manifest = std::ranges::find_if(log(), [](auto& line) { return line.starts_with("Undo manifest"); });
    ASSERT_NE(manifest, log().end());
    EXPECT_EQ(manifest[1], "Found 1 duplicate group(s).");
    EXPECT_EQ(manifest[4], kSkipped);
    EXPECT_EQ(harness.state().duplicateGroups.size(), 1);
}

TEST_F(DuplicateRunTest, WithoutHashesEveryRunSaysThatThereAreNone) {
    photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143022.jpg", "twin");
    for (auto options : {dryOptions(), copyOptions(), moveOptions()}) {
        options.computeHashForDuplicates = false;
        options.duplicateAction = DuplicateAction::skip;
        options.namingStyle = NamingStyle::archival;
        harness.observer.allLogLines.clear();
        run(options);
        EXPECT_TRUE(hasLine("No duplicates detected."));
        EXPECT_FALSE(hasLine("No near-duplicates detected."));
        EXPECT_THAT(harness.state().duplicateDestPaths, IsEmpty());
    }
    EXPECT_FALSE(testing::exists(dest + "/_duplicates_report.csv"));
}

TEST_F(DuplicateRunTest, OnNetworkStorageOnlyARealRunFindsThem) {
    photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143021.jpg", "twin");
    auto options = dryOptions();
    options.storageIsNetwork = true;
    run(options);
    EXPECT_TRUE(hasLine("No duplicates detected."));
    options.dryRun = false;
    run(options);
    EXPECT_TRUE(hasLine("Found 1 duplicate group(s)."));
}

TEST_F(DuplicateRunTest, TheNextRunForgetsThem) {
    const auto path = photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143021.jpg", "twin");
    run(dryOptions());
    EXPECT_THAT(harness.state().duplicateDestPaths, ::testing::SizeIs(1));
    std::filesystem::remove(path);
    run(dryOptions());
    EXPECT_THAT(harness.state().duplicateDestPaths, IsEmpty());
    EXPECT_THAT(harness.state().duplicateGroups, IsEmpty());
}

TEST_F(DuplicateRunTest, AnUndoEntryOfARemovedDuplicateStays) {
    const testing::ScopedTimeZone utc("UTC");
    photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143021.jpg", "twin");
    auto options = copyOptions();
    options.duplicateAction = DuplicateAction::skip;
    run(options);
    EXPECT_THAT(filesBelow(dest), ElementsAre("2023/08 - August/a/2023-08-14_143021_20230814_143021.jpg",
                                              "_vellomar_undo_2024-06-14_094107.json"));
    const auto manifest = contentOf(dest + "/_vellomar_undo_2024-06-14_094107.json");
    EXPECT_NE(manifest.find("/b/2023-08-14_143021_20230814_143021.jpg"), std::string::npos);
}

TEST_F(DuplicateRunTest, ACancelledRunLooksForNone) {
    photo("a/20230814_143021.jpg", "twin");
    photo("b/20230814_143021.jpg", "twin");
    harness.cancelWhenLogged("Total files: ");
    run(copyOptions());
    EXPECT_TRUE(hasLine("Cancelled before post-processing."));
    EXPECT_FALSE(hasLine("No duplicates detected."));
}

}  // namespace
}  // namespace vellomar
