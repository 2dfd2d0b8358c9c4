#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/CallRecorder.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"
#include "undo/EmptyFolderSweep.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::exists;
using ::testing::IsEmpty;

class EmptyFolderSweepTest : public ::testing::Test {
protected:
    void removeEmpty() { removeEmptyDirectories(fileSystem, root); }

    // Everything below the root, relative to it, sorted.
    [[nodiscard]] std::vector<std::string> remaining() const {
        std::vector<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(root))
            paths.push_back(entry.path().string().substr(root.size() + 1));
        std::ranges::sort(paths);
        return paths;
    }

    // The recorded calls that begin with `beginning`, without it.
    [[nodiscard]] std::vector<std::string> calls(const std::string& beginning) const {
        std::vector<std::string> found;
        for (const auto& call : recorder.calls())
            if (call.starts_with(beginning)) found.push_back(call.substr(beginning.size()));
        return found;
    }

    [[nodiscard]] bool wholeTreeWasWalked() const {
        const auto listed = calls("list ");
        return std::ranges::find(listed, root) != listed.end();
    }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    std::string root = folder.makeFolder("root");
    LinuxFileSystem fileSystem;
    testing::CallRecorder recorder{fileSystem};
};

TEST_F(EmptyFolderSweepTest, FoldersWithNothingInThemGoAndSoDoTheirParents) {
    folder.makeFolder("root/2023/08 - August/Rome");
    folder.makeFolder("root/2023/09 - September");
    folder.makeFolder("root/2024");
    folder.write("root/2025/06 - June/kept.jpg");
    folder.makeFolder("root/2025/07 - July");
    removeEmpty();
    EXPECT_THAT(remaining(), ElementsAre("2025", "2025/06 - June", "2025/06 - June/kept.jpg"));
}

TEST_F(EmptyFolderSweepTest, TheRootStaysEvenWhenEmpty) {
    removeEmpty();
    EXPECT_TRUE(exists(root));
    folder.makeFolder("root/a");
    removeEmpty();
    EXPECT_THAT(remaining(), IsEmpty());
    EXPECT_TRUE(exists(root));
}

TEST_F(EmptyFolderSweepTest, AFolderWithAHiddenFileStays) {
    folder.write("root/2023/08/.DS_Store");
    folder.write("root/2024/Thumbs.db");
    folder.makeFolder("root/2025/.hidden");
    removeEmpty();
    EXPECT_THAT(remaining(),
                ElementsAre("2023", "2023/08", "2023/08/.DS_Store", "2024", "2024/Thumbs.db", "2025", "2025/.hidden"));
}

TEST_F(EmptyFolderSweepTest, HiddenFoldersAreNeitherRemovedNorEntered) {
    folder.makeFolder("root/.empty");
    folder.makeFolder("root/.hidden/empty");
    removeEmpty();
    EXPECT_THAT(remaining(), ElementsAre(".empty", ".hidden", ".hidden/empty"));
}

TEST_F(EmptyFolderSweepTest, SymlinksAreNoFoldersAndLeadNowhere) {
    folder.makeFolder("elsewhere/empty");
    fs::create_directory_symlink(folder / "elsewhere", root + "/link");
    fs::create_directory_symlink(folder / "elsewhere/empty", root + "/to empty");
    folder.makeFolder("root/dangles");
    fs::create_symlink(folder / "nowhere", root + "/dangles/link");
    removeEmpty();
    EXPECT_THAT(remaining(), ElementsAre("dangles", "dangles/link", "link", "to empty"));
    EXPECT_TRUE(exists(folder / "elsewhere/empty"));
}

TEST_F(EmptyFolderSweepTest, ARootThatIsASymlinkIsFollowed) {
    folder.makeFolder("root/a");
    fs::create_directory_symlink(root, folder / "alias");
    removeEmptyDirectories(fileSystem, folder / "alias");
    EXPECT_THAT(remaining(), IsEmpty());
    EXPECT_TRUE(exists(folder / "alias"));
}

TEST_F(EmptyFolderSweepTest, WhatIsNoFolderHasNone) {
    folder.write("file");
    for (const auto& noRoot : {folder / "missing", folder / "file", std::string(), std::string("relative")})
        removeEmptyDirectories(fileSystem, noRoot);
    const auto before = fs::current_path();
    fs::current_path(root);
    folder.makeFolder("root/a/b");
    removeEmptyDirectories(fileSystem, "a");
    removeEmptyDirectories(fileSystem, ".");
    removeEmptyDirectories(fileSystem, "");
    fs::current_path(before);
    EXPECT_THAT(remaining(), ElementsAre("a", "a/b"));
}

TEST_F(EmptyFolderSweepTest, TheLongestPathGoesFirst) {
    folder.makeFolder("root/a/b");
    folder.makeFolder("root/four");
    folder.makeFolder("root/éé/é");  // four characters, of more bytes
    removeEmptyDirectories(recorder, root);
    auto removed = calls("removeDirectory " + root + "/");
    ASSERT_EQ(removed.size(), 5);
    std::ranges::sort(removed.begin(), removed.begin() + 2);
    EXPECT_THAT(removed, ElementsAre("four", "éé/é", "a/b", "éé", "a"));
    EXPECT_THAT(remaining(), IsEmpty());
}

TEST_F(EmptyFolderSweepTest, OnlyWhatListsAsEmptyIsTriedAtAll) {
    folder.write("root/full/a.jpg");
    folder.write("root/hidden/.a.jpg");
    folder.makeFolder("root/empty");
    removeEmptyDirectories(recorder, root);
    EXPECT_THAT(calls("removeDirectory "), ElementsAre(root + "/empty"));
}

TEST_F(EmptyFolderSweepTest, WhatCannotBeListedCountsAsEmptyButIsNotEmptied) {
    fs::permissions(folder.makeFolder("root/closed, empty"), fs::perms::none);
    folder.write("root/closed, full/a.jpg");
    fs::permissions(folder / "root/closed, full", fs::perms::none);
    fs::permissions(root, fs::perms::all);
    {
        const testing::ScopedOrdinaryUser user(folder.path());
        removeEmpty();
    }
    fs::permissions(folder / "root/closed, full", fs::perms::owner_all);
    EXPECT_THAT(remaining(), ElementsAre("closed, full", "closed, full/a.jpg"));
}

TEST_F(EmptyFolderSweepTest, AFolderThatMayNotGoIsPassedOverInSilence) {
    folder.makeFolder("root/locked/empty");
    folder.makeFolder("root/open");
    fs::permissions(folder / "root/locked", fs::perms(0555));
    fs::permissions(root, fs::perms::all);
    {
        const testing::ScopedOrdinaryUser user(folder.path());
        removeEmpty();
    }
    fs::permissions(folder / "root/locked", fs::perms::owner_all);
    EXPECT_THAT(remaining(), ElementsAre("locked", "locked/empty"));
}

TEST_F(EmptyFolderSweepTest, NamesOfAnyBytesAreSweptToo) {
    folder.makeFolder(
        "root/br\xFC"
        "cke/\xFF");
    removeEmpty();
    EXPECT_THAT(remaining(), IsEmpty());
}

// A sweep that has had its first time over a tree that holds no empty folder.
class RepeatedSweep : public EmptyFolderSweepTest {
protected:
    RepeatedSweep() {
        folder.write("root/other/kept.jpg");
        folder.makeFolder("root/empty at first");
    }

    // Behind the first time, and with the calls of that forgotten.
    void begin() {
        EmptyFolderSweep(fileSystem, root).sweep({root});
        sweep.sweep({root});
        callsOfFirst = recorder.calls().size();
    }

    [[nodiscard]] std::vector<std::string> listedSince() const {
        std::vector<std::string> listed;
        const auto all = recorder.calls();
        for (std::size_t i = callsOfFirst; i < all.size(); ++i)
            if (all[i].starts_with("list ")) listed.push_back(all[i].substr(5));
        return listed;
    }

    std::size_t callsOfFirst = 0;
    EmptyFolderSweep sweep{recorder, root};
};

TEST_F(RepeatedSweep, TheFirstTimeGoesThroughTheWholeTree) {
    folder.makeFolder("root/a/b");
    sweep.sweep({root + "/other"});
    EXPECT_THAT(remaining(), ElementsAre("other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, LaterOnesGoUpFromWhatWasLeft) {
    begin();
    folder.makeFolder("root/2023/08/Rome");
    folder.makeFolder("root/made by others");
    sweep.sweep({root + "/2023/08/Rome"});
    EXPECT_THAT(listedSince(), ElementsAre(root + "/2023/08/Rome", root + "/2023/08", root + "/2023"));
    EXPECT_THAT(remaining(), ElementsAre("made by others", "other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, TheyStopAtTheFirstFolderThatHoldsSomething) {
    begin();
    folder.makeFolder("root/2023/08/Rome");
    folder.write("root/2023/.hidden");
    sweep.sweep({root + "/2023/08/Rome"});
    EXPECT_THAT(listedSince(), ElementsAre(root + "/2023/08/Rome", root + "/2023/08", root + "/2023"));
    EXPECT_THAT(remaining(), ElementsAre("2023", "2023/.hidden", "other", "other/kept.jpg"));
    sweep.sweep({root + "/other"});
    EXPECT_THAT(remaining(), ElementsAre("2023", "2023/.hidden", "other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, AFolderIsListedAgainOnlyWhenWhatWasSeenInItIsGone) {
    begin();
    const auto left = root + "/2023";
    for (const auto* name : {"a", "b", "c", "d", "e", "f", "g", "h"})
        folder.write(std::string("root/2023/") + name);
    for (int i = 0; i < 5; ++i)
        sweep.sweep({left});
    EXPECT_THAT(listedSince(), ElementsAre(left));
    const auto first = fs::directory_iterator(left)->path();
    fs::remove(first);
    sweep.sweep({left});
    sweep.sweep({left});
    EXPECT_THAT(listedSince(), ElementsAre(left, left));
    fs::remove_all(left);
    folder.makeFolder("root/2023");
    sweep.sweep({left});
    EXPECT_FALSE(exists(left));
}

TEST_F(RepeatedSweep, ThePathsOfOneChangeAreAllSwept) {
    begin();
    folder.makeFolder("root/a");
    folder.makeFolder("root/b");
    sweep.sweep({root + "/a", root + "/b"});
    EXPECT_THAT(remaining(), ElementsAre("other", "other/kept.jpg"));
    EXPECT_THAT(listedSince(), ElementsAre(root + "/a", root + "/b"));
}

TEST_F(RepeatedSweep, AFolderThatWasNeverMadeLeavesItsParents) {
    begin();
    folder.makeFolder("root/made");
    sweep.sweep({root + "/made/in vain/never"});
    EXPECT_THAT(remaining(), ElementsAre("other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, AFileWhereAFolderWasMeantEndsTheWayUp) {
    begin();
    folder.write("root/a/file");
    sweep.sweep({root + "/a/file/below"});
    EXPECT_THAT(remaining(), ElementsAre("a", "a/file", "other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, AChangeInTheRootItselfLeavesNothingToLookAt) {
    begin();
    sweep.sweep({root});
    EXPECT_THAT(listedSince(), IsEmpty());
}

TEST_F(RepeatedSweep, APathThatIsNotPlainlyWithinTheRootCostsAWholeWalk) {
    for (const std::string& left :
         {folder / "elsewhere", folder / "root2", folder.path(), folder / "root/a/../b", folder / "root/a/./b",
          folder / "root//b", folder / "root/b/", folder / "root/.hidden/b", folder / "root/b/.hidden",
          std::string("b"), std::string()}) {
        SCOPED_TRACE(left);
        begin();
        folder.makeFolder("root/b");
        sweep.sweep({left});
        EXPECT_THAT(listedSince(), ::testing::Contains(root));
        EXPECT_THAT(remaining(), ElementsAre("other", "other/kept.jpg"));
    }
}

TEST_F(RepeatedSweep, AFolderReachedBySymlinkCostsAWholeWalkAndStays) {
    begin();
    folder.makeFolder("elsewhere/empty");
    fs::create_directory_symlink(folder / "elsewhere", root + "/link");
    folder.makeFolder("root/real");
    sweep.sweep({root + "/link/empty"});
    EXPECT_TRUE(exists(folder / "elsewhere/empty"));
    EXPECT_THAT(listedSince(), ::testing::Contains(root));
    EXPECT_THAT(remaining(), ElementsAre("link", "other", "other/kept.jpg"));
    begin();
    folder.makeFolder("root/real");
    fs::create_directory_symlink(root + "/real", root + "/to real");
    sweep.sweep({root + "/to real"});
    EXPECT_THAT(listedSince(), ::testing::Contains(root));
    EXPECT_THAT(remaining(), ElementsAre("link", "other", "other/kept.jpg", "to real"));
}

TEST_F(RepeatedSweep, TheEndFindsWhatOthersEmptied) {
    begin();
    sweep.sweep({root + "/other"});
    folder.makeFolder("root/made by others");
    sweep.finish();
    EXPECT_THAT(remaining(), ElementsAre("other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, OneChangeNeedsNoSecondWalk) {
    begin();
    folder.makeFolder("root/made by others");
    sweep.finish();
    EXPECT_THAT(listedSince(), IsEmpty());
    EXPECT_THAT(remaining(), ElementsAre("made by others", "other", "other/kept.jpg"));
}

TEST_F(RepeatedSweep, NothingHappensWithoutAChange) {
    sweep.finish();
    EXPECT_FALSE(wholeTreeWasWalked());
    EXPECT_TRUE(exists(root + "/empty at first"));
}

TEST_F(RepeatedSweep, SlashesAtTheRootsEndDoNotMatter) {
    EmptyFolderSweep slashed(recorder, root + "//");
    slashed.sweep({root});
    callsOfFirst = recorder.calls().size();
    folder.makeFolder("root/a");
    slashed.sweep({root + "/a"});
    EXPECT_THAT(listedSince(), ElementsAre(root + "/a"));
    EXPECT_FALSE(exists(root + "/a"));
}

TEST_F(RepeatedSweep, CoversItsRootAndWhatLiesBelow) {
    EXPECT_TRUE(sweep.covers(root));
    EXPECT_TRUE(sweep.covers(root + "/a/b"));
    EXPECT_FALSE(sweep.covers(root + "2"));
    EXPECT_FALSE(sweep.covers(folder.path()));
    EXPECT_TRUE(EmptyFolderSweep(fileSystem, "/").covers("/a"));
}

// The whole disk as the root, without touching it: nothing is empty here but what the test says.
TEST_F(RepeatedSweep, TheTopOfTheDiskCanBeTheRoot) {
    class EmptyDisk final : public testing::ForwardingFileSystem {
    public:
        using ForwardingFileSystem::ForwardingFileSystem;
        [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& /*path*/,
                                                                         bool /*follow*/) override {
            return systemFailure(EACCES);
        }
        [[nodiscard]] Expected<void> removeDirectory(const std::string& path) override {
            removed.push_back(path);
            return {};
        }
        std::vector<std::string> removed;
    };
    EmptyDisk emptyDisk(fileSystem);
    EmptyFolderSweep top(emptyDisk, "/");
    top.sweep({"/a"});
    top.sweep({"/a/b"});
    EXPECT_THAT(emptyDisk.removed, ElementsAre("/a/b", "/a"));
}

}  // namespace
}  // namespace vellomar
