#include <cerrno>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/FileDigest.h"
#include "platform/LinuxFileSystem.h"
#include "support/CallRecorder.h"
#include "support/Morning.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/SeparateVolume.h"
#include "support/TemporaryFolder.h"
#include "undo/UndoExecution.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using testing::exists;
using ::testing::IsEmpty;
using testing::ScopedOrdinaryUser;

// Undoes a manifest that each test makes itself, entry by entry. Sources lie below "source", destinations below "dest".
class UndoExecutionTest : public ::testing::Test {
protected:
    // A file that a run took from "source/OLD" to "dest/NEW", with its entry. Returns the path that it has now.
    std::string transferred(UndoEntry::OpType op, const std::string& oldName, const std::string& newName,
                            bool withHash = true) {
        auto path = folder.write("dest/" + newName, "photo");
        auto hash = withHash ? sha256OfFile(disk, path) : std::nullopt;
        manifest.appendUndoEntry({op, folder / ("source/" + oldName), path, std::move(hash), kMorning});
        return path;
    }
    std::string copied(const std::string& name, bool withHash = true) {
        return transferred(UndoEntry::OpType::copy, name, name, withHash);
    }
    std::string moved(const std::string& name, bool withHash = true) {
        return transferred(UndoEntry::OpType::move, name, name, withHash);
    }

    UndoCounters undo(FileSystem& fileSystem) {
        lines.clear();
        progress.clear();
        return executeUndo(fileSystem, manifest,
                           {.log = [&](std::string line) { lines.push_back(std::move(line)); },
                            .progress = [&](double fraction) { progress.push_back(fraction); }});
    }
    UndoCounters undo() { return undo(disk); }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    std::string source = folder.makeFolder("source");
    std::string dest = folder.makeFolder("dest");
    LinuxFileSystem disk;
    UndoManifest manifest{"2024-06-14T09:41:07", source, dest, {}};
    std::vector<std::string> lines;
    std::vector<double> progress;
};

TEST_F(UndoExecutionTest, NoEntriesAreNoWork) {
    folder.makeFolder("dest/empty");
    EXPECT_EQ(undo(), (UndoCounters{0, 0, 0}));
    EXPECT_THAT(lines, IsEmpty());
    EXPECT_THAT(progress, IsEmpty());
    EXPECT_TRUE(exists(dest + "/empty"));
}

TEST_F(UndoExecutionTest, ACopyIsRemoved) {
    for (const bool withHash : {true, false}) {
        manifest.entries.clear();
        folder.write("source/a.jpg", "photo");
        const auto path = copied("a.jpg", withHash);
        EXPECT_EQ(undo(), (UndoCounters{1, 0, 0}));
        EXPECT_THAT(lines, ElementsAre("✓ Removed copy: " + path));
        EXPECT_FALSE(exists(path));
        EXPECT_EQ(contentOf(source + "/a.jpg"), "photo");
    }
}

TEST_F(UndoExecutionTest, AMovedFileComesBack) {
    for (const bool withHash : {true, false}) {
        manifest.entries.clear();
        const auto path = moved("2023/a.jpg", withHash);
        EXPECT_EQ(undo(), (UndoCounters{1, 0, 0}));
        EXPECT_THAT(lines, ElementsAre("✓ Restored: a.jpg → " + source + "/2023/a.jpg"));
        EXPECT_FALSE(exists(path));
        EXPECT_EQ(contentOf(source + "/2023/a.jpg"), "photo");
        fs::remove(source + "/2023/a.jpg");
    }
}

TEST_F(UndoExecutionTest, AMovedFileComesBackUnderItsOldName) {
    transferred(UndoEntry::OpType::move, "IMG_1.JPG", "2023/2023-08-14_IMG_1.jpg");
    undo();
    EXPECT_THAT(lines, ElementsAre("✓ Restored: 2023-08-14_IMG_1.jpg → " + source + "/IMG_1.JPG"));
}

TEST_F(UndoExecutionTest, TheNewestGoesFirst) {
    const auto first = copied("a.jpg");
    const auto second = copied("b.jpg");
    moved("c.jpg");
    EXPECT_EQ(undo(), (UndoCounters{3, 0, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: c.jpg → " + source + "/c.jpg", "✓ Removed copy: " + second,
                                   "✓ Removed copy: " + first));
}

TEST_F(UndoExecutionTest, TheNewestOfTwoThatWentTheSameWayComesBackFirst) {
    moved("a.jpg", false);
    manifest.appendUndoEntry(manifest.entries[0]);
    EXPECT_EQ(undo(), (UndoCounters{1, 1, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: a.jpg → " + source + "/a.jpg", "⚠ SKIP (already gone): a.jpg"));
}

TEST_F(UndoExecutionTest, AChangedFileIsLeftAlone) {
    const std::string line = "⚠ SKIP (file changed since sort — hash mismatch): ";
    const auto copy = copied("2023/a.jpg");
    const auto file = moved("2024/b.jpg");
    folder.write("dest/2023/a.jpg", "edited");
    folder.write("dest/2024/b.jpg", "edited");
    EXPECT_EQ(undo(), (UndoCounters{0, 2, 0}));
    EXPECT_THAT(lines, ElementsAre(line + "b.jpg", line + "a.jpg"));
    EXPECT_EQ(contentOf(copy), "edited");
    EXPECT_EQ(contentOf(file), "edited");
    EXPECT_THAT(progress, IsEmpty());
}

TEST_F(UndoExecutionTest, AHashComparesAsText) {
    const auto path = copied("a.jpg");
    auto& hash = manifest.entries[0].sha256;
    for (auto& c : *hash)
        c = static_cast<char>(std::toupper(c));
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 0}));
    hash = "";
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 0}));
    EXPECT_TRUE(exists(path));
}

TEST_F(UndoExecutionTest, AFileThatIsGoneReportsAMismatchIfItHadAHash) {
    fs::remove(copied("a.jpg"));
    fs::remove(moved("b.jpg"));
    fs::remove(copied("c.jpg", false));
    fs::remove(moved("d.jpg", false));
    EXPECT_EQ(undo(), (UndoCounters{0, 4, 0}));
    EXPECT_THAT(lines, ElementsAre("⚠ SKIP (already gone): d.jpg", "⚠ SKIP (already gone): c.jpg",
                                   "⚠ SKIP (file changed since sort — hash mismatch): b.jpg",
                                   "⚠ SKIP (file changed since sort — hash mismatch): a.jpg"));
}

TEST_F(UndoExecutionTest, AFileThatMayNotBeReadReportsAMismatch) {
    const auto path = copied("a.jpg");
    fs::permissions(path, fs::perms::none);
    const ScopedOrdinaryUser user(folder.path());
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 0}));
    EXPECT_THAT(lines, ElementsAre("⚠ SKIP (file changed since sort — hash mismatch): a.jpg"));
    EXPECT_TRUE(exists(path));
}

TEST_F(UndoExecutionTest, ASecondUndoOnlySkips) {
    copied("a.jpg");
    copied("b.jpg", false);
    moved("c.jpg");
    moved("d.jpg", false);
    EXPECT_EQ(undo(), (UndoCounters{4, 0, 0}));
    folder.makeFolder("dest/empty");
    EXPECT_EQ(undo(), (UndoCounters{0, 4, 0}));
    EXPECT_THAT(lines,
                ElementsAre("⚠ SKIP (already gone): d.jpg", "⚠ SKIP (file changed since sort — hash mismatch): c.jpg",
                            "⚠ SKIP (already gone): b.jpg", "⚠ SKIP (file changed since sort — hash mismatch): a.jpg"));
    EXPECT_THAT(progress, IsEmpty());
    EXPECT_EQ(contentOf(source + "/c.jpg"), "photo");
    EXPECT_TRUE(exists(dest + "/empty"));  // nothing was acted on, so nothing is swept
}

TEST_F(UndoExecutionTest, AReoccupiedNameIsSpared) {
    moved("2023/a.jpg");
    folder.write("source/2023/a.jpg", "another");
    folder.write("source/2023/a (1).jpg", "one more");
    EXPECT_EQ(undo(), (UndoCounters{1, 0, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: a.jpg → " + source + "/2023/a (2).jpg"));
    EXPECT_EQ(contentOf(source + "/2023/a.jpg"), "another");
    EXPECT_EQ(contentOf(source + "/2023/a (1).jpg"), "one more");
    EXPECT_EQ(contentOf(source + "/2023/a (2).jpg"), "photo");
}

TEST_F(UndoExecutionTest, FoldersAndDanglingSymlinksOccupyANameToo) {
    moved("a.jpg");
    moved("b");
    folder.write("source/a.jpg/inside", "kept");
    fs::create_symlink(folder / "nowhere", source + "/b");
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_THAT(lines,
                ElementsAre("✓ Restored: b → " + source + "/b (1)", "✓ Restored: a.jpg → " + source + "/a (1).jpg"));
    EXPECT_EQ(contentOf(source + "/a.jpg/inside"), "kept");
    EXPECT_FALSE(exists(folder / "nowhere"));
}

// Takes a name the moment somebody is about to use it.
class NameThief final : public testing::ForwardingFileSystem {
public:
    NameThief(FileSystem& real, int thefts) : ForwardingFileSystem(real), thefts_(thefts) {}

    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        if (thefts_-- > 0) std::ofstream(to) << "stolen";
        return real().renameWithoutReplacing(from, to);
    }

private:
    int thefts_;
};

TEST_F(UndoExecutionTest, ANameThatIsTakenAtTheLastMomentMakesItLookAgain) {
    moved("a.jpg");
    NameThief thief(disk, 2);
    EXPECT_EQ(undo(thief), (UndoCounters{1, 0, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: a.jpg → " + source + "/a (2).jpg"));
    EXPECT_EQ(contentOf(source + "/a.jpg"), "stolen");
    EXPECT_EQ(contentOf(source + "/a (1).jpg"), "stolen");
    EXPECT_EQ(contentOf(source + "/a (2).jpg"), "photo");
}

TEST_F(UndoExecutionTest, ADiskThatLiesAboutNamesIsNotAskedForEver) {
    class Liar final : public testing::ForwardingFileSystem {
    public:
        using ForwardingFileSystem::ForwardingFileSystem;
        [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& /*from*/,
                                                            const std::string& /*to*/) override {
            return systemFailure(EEXIST);
        }
    };
    const auto path = moved("a.jpg");
    Liar liar(disk);
    EXPECT_EQ(undo(liar), (UndoCounters{0, 0, 1}));
    EXPECT_THAT(lines, ElementsAre("✗ Failed: a.jpg — File exists"));
    EXPECT_TRUE(exists(path));
}

TEST_F(UndoExecutionTest, AFolderChainThatIsGoneIsMadeAgain) {
    moved("Rome/2023/first day/a.jpg");
    fs::remove_all(source);
    EXPECT_EQ(undo(), (UndoCounters{1, 0, 0}));
    EXPECT_EQ(contentOf(source + "/Rome/2023/first day/a.jpg"), "photo");
}

TEST_F(UndoExecutionTest, AFolderChainThatCannotBeMadeFailsItsFileAlone) {
    const auto path = moved("Rome/a.jpg");
    moved("b.jpg");
    folder.write("source/Rome", "a file where a folder was");
    EXPECT_EQ(undo(), (UndoCounters{1, 0, 1}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: b.jpg → " + source + "/b.jpg", "✗ Failed: a.jpg — Not a directory"));
    EXPECT_EQ(contentOf(path), "photo");
    EXPECT_EQ(contentOf(source + "/Rome"), "a file where a folder was");
}

TEST_F(UndoExecutionTest, WhereNothingMayBeWrittenTheFileStays) {
    const auto file = moved("a.jpg");
    const auto copy = copied("2023/b.jpg");
    fs::permissions(source, fs::perms(0555));
    fs::permissions(dest + "/2023", fs::perms(0555));
    fs::permissions(dest, fs::perms::all);
    {
        const ScopedOrdinaryUser user(folder.path());
        EXPECT_EQ(undo(), (UndoCounters{0, 0, 2}));
    }
    for (const auto& closed : {source, dest + "/2023"})
        fs::permissions(closed, fs::perms::owner_all);
    EXPECT_THAT(lines, ElementsAre("✗ Failed: b.jpg — Permission denied", "✗ Failed: a.jpg — Permission denied"));
    EXPECT_EQ(contentOf(file), "photo");
    EXPECT_EQ(contentOf(copy), "photo");
    EXPECT_THAT(progress, ElementsAre(0.5, 1));
}

TEST_F(UndoExecutionTest, AReadOnlyVolumeFailsTheMove) {
    class ReadOnlySource final : public testing::ForwardingFileSystem {
    public:
        using ForwardingFileSystem::ForwardingFileSystem;
        [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& /*from*/,
                                                            const std::string& /*to*/) override {
            return systemFailure(EROFS);
        }
    };
    const auto path = moved("a.jpg");
    ReadOnlySource readOnly(disk);
    EXPECT_EQ(undo(readOnly), (UndoCounters{0, 0, 1}));
    EXPECT_THAT(lines, ElementsAre("✗ Failed: a.jpg — Read-only file system"));
    EXPECT_EQ(contentOf(path), "photo");
}

TEST_F(UndoExecutionTest, AFileComesBackToAnotherVolume) {
    const auto path = moved("Rome/a.jpg");
    testing::SeparateVolume fileSystem(disk, source);
    EXPECT_EQ(undo(fileSystem), (UndoCounters{1, 0, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: a.jpg → " + source + "/Rome/a.jpg"));
    EXPECT_EQ(contentOf(source + "/Rome/a.jpg"), "photo");
    EXPECT_FALSE(exists(path));
    EXPECT_FALSE(exists(source + "/Rome/a.jpg.__partial"));
}

TEST_F(UndoExecutionTest, AFolderIsNeverRemovedNorMoved) {
    for (const auto op : {UndoEntry::OpType::copy, UndoEntry::OpType::move}) {
        const auto path = transferred(op, "a.jpg", "2023/a.jpg", false);
        fs::remove(path);
        folder.write("dest/2023/a.jpg/inside.jpg", "kept");
        EXPECT_EQ(undo(), (UndoCounters{0, 0, 1}));
        EXPECT_THAT(lines, ElementsAre("✗ Failed: a.jpg — Is a directory"));
        EXPECT_EQ(contentOf(path + "/inside.jpg"), "kept");
        fs::remove_all(path);
        manifest.entries.clear();
    }
}

TEST_F(UndoExecutionTest, AFolderHasNoHash) {
    const auto path = copied("a.jpg");
    fs::remove(path);
    folder.write("dest/a.jpg/inside.jpg", "kept");
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 0}));
    EXPECT_THAT(lines, ElementsAre("⚠ SKIP (file changed since sort — hash mismatch): a.jpg"));
}

TEST_F(UndoExecutionTest, ASymlinkIsRemovedOrMovedItself) {
    const auto copy = copied("a.jpg", false);
    const auto file = moved("b.jpg", false);
    const auto elsewhere = folder.write("elsewhere.jpg", "kept");
    for (const auto& path : {copy, file}) {
        fs::remove(path);
        fs::create_symlink(elsewhere, path);
    }
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_FALSE(exists(copy));
    EXPECT_EQ(fs::read_symlink(source + "/b.jpg"), elsewhere);
    EXPECT_EQ(contentOf(elsewhere), "kept");
}

TEST_F(UndoExecutionTest, ASymlinkThatLeadsNowhereCountsAsGone) {
    const auto path = copied("a.jpg", false);
    fs::remove(path);
    fs::create_symlink(folder / "nowhere", path);
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 0}));
    EXPECT_THAT(lines, ElementsAre("⚠ SKIP (already gone): a.jpg"));
    EXPECT_TRUE(exists(path));
}

TEST_F(UndoExecutionTest, EmptiedFoldersGoButTheDestinationStays) {
    copied("2023/08/Rome/a.jpg");
    copied("2023/09/b.jpg");
    folder.write("dest/2023/09/.DS_Store");
    folder.makeFolder("dest/empty before");
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_FALSE(exists(dest + "/2023/08"));
    EXPECT_TRUE(exists(dest + "/2023/09/.DS_Store"));
    EXPECT_FALSE(exists(dest + "/empty before"));
    fs::remove_all(dest + "/2023");
    copied("2024/c.jpg");
    undo();
    EXPECT_TRUE(exists(dest));
    EXPECT_TRUE(fs::is_empty(dest));
}

TEST_F(UndoExecutionTest, EmptiedFoldersGoBehindEachEntry) {
    std::vector<bool> stood;
    copied("a/1.jpg");
    moved("b/2.jpg");
    copied("c/3.jpg");
    static_cast<void>(executeUndo(disk, manifest,
                                  {.log = [](const std::string&) {},
                                   .progress =
                                       [&](double) {
                                           for (const auto* name : {"/a", "/b", "/c"})
                                               stood.push_back(exists(dest + name));
                                       }}));
    EXPECT_THAT(stood, ElementsAre(true, true, false, true, false, false, false, false, false));
}

TEST_F(UndoExecutionTest, AFailureIsFollowedByASweepToo) {
    const auto path = copied("a.jpg", false);
    fs::remove(path);
    folder.write("dest/a.jpg/inside.jpg", "kept");
    folder.makeFolder("dest/empty");
    EXPECT_EQ(undo(), (UndoCounters{0, 0, 1}));
    EXPECT_FALSE(exists(dest + "/empty"));
}

TEST_F(UndoExecutionTest, WhatOthersEmptyMeanwhileGoesAtTheEnd) {
    copied("a.jpg");
    copied("b.jpg");
    static_cast<void>(executeUndo(
        disk, manifest,
        {.log = [](const std::string&) {}, .progress = [&](double) { folder.makeFolder("dest/made by others"); }}));
    EXPECT_FALSE(exists(dest + "/made by others"));
}

TEST_F(UndoExecutionTest, FoldersMadeInVainWithinTheDestinationGo) {
    copied("first.jpg");  // undone last
    const auto path = moved("b.jpg", false);
    manifest.entries.back().source = dest + "/inbox/deep/b.jpg";
    copied("c.jpg");  // undone first, so that the move is not behind the whole walk
    class NoRenames final : public testing::ForwardingFileSystem {
    public:
        using ForwardingFileSystem::ForwardingFileSystem;
        [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& /*from*/,
                                                            const std::string& to) override {
            EXPECT_TRUE(exists(fs::path(to).parent_path()));
            return systemFailure(ENOSPC);
        }
    };
    NoRenames fileSystem(disk);
    std::vector<bool> stood;
    const auto counters = executeUndo(
        fileSystem, manifest,
        {.log = [](const std::string&) {}, .progress = [&](double) { stood.push_back(exists(dest + "/inbox")); }});
    EXPECT_EQ(counters, (UndoCounters{2, 0, 1}));
    EXPECT_THAT(stood, ElementsAre(false, false, false));
    EXPECT_TRUE(exists(path));
}

TEST_F(UndoExecutionTest, FoldersOnTheSourceSideAreLeftAsTheyAre) {
    folder.makeFolder("source/empty");
    moved("Rome/a.jpg");
    EXPECT_EQ(undo(), (UndoCounters{1, 0, 0}));
    EXPECT_TRUE(exists(source + "/empty"));
    const auto path = moved("made/in vain/b.jpg", false);
    fs::remove(path);
    folder.write("dest/made/in vain/b.jpg/inside", "kept");
    EXPECT_EQ(undo(), (UndoCounters{0, 1, 1}));
    EXPECT_TRUE(exists(source + "/made/in vain"));
}

TEST_F(UndoExecutionTest, AWholeTreeIsWalkedTwiceHoweverManyEntriesThereAre) {
    for (int i = 0; i < 50; ++i)
        copied("2023/" + std::to_string(i % 10) + "/" + std::to_string(i) + ".jpg");
    folder.write("dest/kept.jpg");
    testing::CallRecorder recorder(disk);
    EXPECT_EQ(undo(recorder), (UndoCounters{50, 0, 0}));
    const auto calls = recorder.calls();
    EXPECT_EQ(std::ranges::count(calls, "list " + dest), 2);
    EXPECT_FALSE(exists(dest + "/2023"));
}

TEST_F(UndoExecutionTest, ProgressCountsTheVisitedEntries) {
    copied("a.jpg");
    fs::remove(copied("gone.jpg"));
    moved("b.jpg");
    fs::remove(moved("gone too.jpg"));
    EXPECT_EQ(undo(), (UndoCounters{2, 2, 0}));
    EXPECT_THAT(progress, ElementsAre(0.5, 1));
}

TEST_F(UndoExecutionTest, APathThatIsNotAbsoluteLeadsNowhere) {
    const auto before = fs::current_path();
    fs::current_path(dest);
    const auto path = moved("a.jpg", false);
    manifest.entries[0].source = "a.jpg";
    manifest.appendUndoEntry({UndoEntry::OpType::copy, source + "/b.jpg", "a.jpg", std::nullopt, kMorning});
    manifest.appendUndoEntry({UndoEntry::OpType::copy, source + "/c.jpg", "a.jpg", sha256OfFile(disk, path), kMorning});
    manifest.appendUndoEntry(
        {UndoEntry::OpType::copy, source + "/d.jpg", path + std::string("\0x", 2), std::nullopt, kMorning});
    manifest.appendUndoEntry({UndoEntry::OpType::copy, "", "", std::nullopt, kMorning});
    EXPECT_EQ(undo(), (UndoCounters{0, 4, 1}));
    fs::current_path(before);
    EXPECT_THAT(lines, ElementsAre("⚠ SKIP (already gone): ", "⚠ SKIP (already gone): a.jpg" + std::string("\0x", 2),
                                   "⚠ SKIP (file changed since sort — hash mismatch): a.jpg",
                                   "⚠ SKIP (already gone): a.jpg", "✗ Failed: a.jpg — Invalid argument"));
    EXPECT_EQ(contentOf(path), "photo");
}

TEST_F(UndoExecutionTest, SlashesAtTheEndOfAPathDoNotMatter) {
    const auto copy = copied("a.jpg");
    moved("b.jpg");
    for (auto& entry : manifest.entries) {
        entry.source += '/';
        entry.destination += "//";
    }
    manifest.destRoot += '/';
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_THAT(lines, ElementsAre("✓ Restored: b.jpg → " + source + "/b.jpg", "✓ Removed copy: " + copy));
}

TEST_F(UndoExecutionTest, NamesHoldAnyBytes) {
    const std::string name =
        "br\xFC"
        "cke\n\".jpg";
    const auto copy = copied("2023/" + name);
    moved("2024/" + name);
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_THAT(lines,
                ElementsAre("✓ Restored: " + name + " → " + source + "/2024/" + name, "✓ Removed copy: " + copy));
    EXPECT_EQ(contentOf(source + "/2024/" + name), "photo");
}

TEST_F(UndoExecutionTest, TheLongestNameThatIsReoccupiedHasNoFreeOneBesideIt) {
    const std::string longest = std::string(251, 'n') + ".jpg";
    const auto path = moved(longest);
    folder.write("source/" + longest, "another");
    EXPECT_EQ(undo(), (UndoCounters{0, 0, 1}));
    EXPECT_THAT(lines, ElementsAre("✗ Failed: " + longest + " — File name too long"));
    EXPECT_EQ(contentOf(path), "photo");
    EXPECT_EQ(contentOf(source + "/" + longest), "another");
}

TEST_F(UndoExecutionTest, EntriesOutsideTheDestinationAreUndoneToo) {
    manifest.destRoot = folder / "moved elsewhere";
    const auto copy = copied("2023/a.jpg");
    moved("2023/b.jpg");
    EXPECT_EQ(undo(), (UndoCounters{2, 0, 0}));
    EXPECT_FALSE(exists(copy));
    EXPECT_TRUE(exists(dest + "/2023"));  // not below the folder that is swept
}

}  // namespace
}  // namespace vellomar
