#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <set>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/LinuxFileSystem.h"
#include "platform/watch/LinuxFolderWatcher.h"
#include "support/ForwardingFileSystem.h"
#include "support/TemporaryFolder.h"
#include "support/VolumeOfItsOwn.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Not;
using testing::TemporaryFolder;

// Long enough for the slowest machine; a test that passes does not wait for it.
constexpr auto kPatience = 60s;

// What was delivered, as it comes.
class Deliveries {
public:
    [[nodiscard]] FolderWatcher::Deliver taker() {
        return [this](FolderChanges changes) {
            std::unique_lock lock(lock_);
            paths_.insert(changes.paths.begin(), changes.paths.end());
            ++count_;
            changed_.notify_all();
            changed_.wait(lock, [this] { return !isHeldUp_; });
        };
    }

    // Waits until all of them were delivered.
    [[nodiscard]] bool tells(const std::set<std::string>& paths) {
        std::unique_lock lock(lock_);
        return changed_.wait_for(lock, kPatience, [&] { return std::ranges::includes(paths_, paths); });
    }

    // All that was delivered so far.
    [[nodiscard]] std::set<std::string> paths() {
        const std::scoped_lock lock(lock_);
        return paths_;
    }

    [[nodiscard]] int count() {
        const std::scoped_lock lock(lock_);
        return count_;
    }

    // While held up, a delivery does not return.
    void holdUp(bool isHeldUp) {
        const std::scoped_lock lock(lock_);
        isHeldUp_ = isHeldUp;
        changed_.notify_all();
    }

private:
    std::mutex lock_;
    std::condition_variable changed_;
    std::set<std::string> paths_;
    int count_ = 0;
    bool isHeldUp_ = false;
};

// A disk that may claim to be a share, and counts how often a watched folder was looked over.
class CountedVolume final : public testing::ForwardingFileSystem {
public:
    explicit CountedVolume(FileSystem& real) : ForwardingFileSystem(real) {}

    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& path) override {
        ++looks_;
        looks_.notify_all();
        if (isRemote) return false;
        return real().volumeIsLocal(path);
    }

    // The folder of that path is gone when it is looked for at the end of the first look over it, and back then.
    void hideOnce(std::string path) { hidden_ = std::move(path); }

    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
        if (looks_ == 1 && path == hidden_ && !wasHidden_.exchange(true)) return systemFailure(ENOENT);
        return real().statusFollowingLinks(path);
    }

    void waitForLooks(int count) {
        for (int seen = looks_; seen < count; seen = looks_)
            looks_.wait(seen);
    }

    // Until a look that begins after this call has been followed by another.
    void waitForNextLook() { waitForLooks(looks_ + 2); }

    std::atomic<bool> isRemote = false;

private:
    std::atomic<int> looks_ = 0;
    std::string hidden_;
    std::atomic<bool> wasHidden_ = false;
};

class LinuxFolderWatcherTest : public ::testing::Test {
protected:
    void watch() { watchWith(LinuxFolderWatcher(disk, times, mostWatches)); }

    void watchWith(LinuxFolderWatcher watcher) {
        auto made = watcher.watch(folder.path(), deliveries.taker());
        ASSERT_TRUE(made);
        watching = *std::move(made);
    }

    // Something else that arrives and is told: whatever was to be told before has been told by then.
    [[nodiscard]] bool tellsALaterFile() {
        const auto path = folder.write("later-" + std::to_string(laterFiles++));
        return deliveries.tells({path});
    }

    LinuxFileSystem real;
    CountedVolume disk{real};
    WatchTimes times{20ms, 40ms, 10ms};
    std::size_t mostWatches = InotifyWatches::kNoLimit;
    TemporaryFolder folder;
    TemporaryFolder elsewhere;
    Deliveries deliveries;
    std::unique_ptr<FolderWatch> watching;
    int laterFiles = 0;
};

TEST_F(LinuxFolderWatcherTest, TellsFilesOfAnyKindInAnyDepth) {
    folder.makeFolder("a/b/c");
    watch();
    const auto photo = folder.write("photo.jpg");
    const auto deep = folder.write("a/b/c/deep.xmp");
    const auto hidden = folder.write("a/.hidden");
    EXPECT_TRUE(deliveries.tells({photo, deep, hidden}));
}

TEST_F(LinuxFolderWatcherTest, WhatWasThereBeforeIsNeverTold) {
    const auto old = folder.write("old.jpg");
    const auto deep = folder.write("a/b/old.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries.paths(), AllOf(Not(Contains(old)), Not(Contains(deep))));
}

TEST_F(LinuxFolderWatcherTest, WhatIsWrittenToAgainIsTold) {
    const auto old = folder.write("old.jpg");
    watch();
    std::ofstream(old, std::ios::app) << "more";
    EXPECT_TRUE(deliveries.tells({old}));
}

TEST_F(LinuxFolderWatcherTest, AFileArrivesWhenItIsClosed) {
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::ofstream slow(folder / "slow.mov");
    slow << "the beginning" << std::flush;
    EXPECT_TRUE(tellsALaterFile());
    slow << "the end" << std::flush;
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries.paths(), Not(Contains(folder / "slow.mov")));
    slow.close();
    EXPECT_TRUE(deliveries.tells({folder / "slow.mov"}));
}

TEST_F(LinuxFolderWatcherTest, TellsAtomicSavesMovesAndLinks) {
    const auto origin = folder.write("origin.jpg");
    const auto outside = elsewhere.write("outside.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder.write(".save.tmp"), folder / "saved.jpg");
    std::filesystem::rename(outside, folder / "moved-in.jpg");
    std::filesystem::create_hard_link(origin, folder / "linked.jpg");
    std::filesystem::create_symlink(origin, folder / "symlink.jpg");
    EXPECT_TRUE(deliveries.tells(
        {folder / "saved.jpg", folder / "moved-in.jpg", folder / "linked.jpg", folder / "symlink.jpg"}));
    EXPECT_THAT(deliveries.paths(), Not(Contains(folder / ".save.tmp")));
}

TEST_F(LinuxFolderWatcherTest, WhatIsReadRemovedOrMovedAwayIsNotTold) {
    const auto read = folder.write("read.jpg");
    const auto removed = folder.write("removed.jpg");
    const auto moved = folder.write("moved.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_EQ(testing::contentOf(read), "content");
    std::filesystem::remove(removed);
    std::filesystem::rename(moved, elsewhere / "moved.jpg");
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries.paths(), AllOf(Not(Contains(read)), Not(Contains(removed)), Not(Contains(moved))));
}

TEST_F(LinuxFolderWatcherTest, FoldersThatAppearAreWatchedFromTheirFirstFileOn) {
    watch();
    std::set<std::string> written;
    for (int i = 0; i < 50; ++i)
        written.insert(folder.write(std::to_string(i) + "/deeper/than/that/first.jpg"));
    EXPECT_TRUE(deliveries.tells(written));
    for (int i = 0; i < 50; ++i)
        written.insert(folder.write(std::to_string(i) + "/deeper/than/that/second.jpg"));
    EXPECT_TRUE(deliveries.tells(written));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsMovedInBringsItsFilesAndIsWatched) {
    elsewhere.write("card/100/a.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(elsewhere / "card", folder / "card");
    EXPECT_TRUE(deliveries.tells({folder / "card/100/a.jpg"}));
    EXPECT_TRUE(deliveries.tells({folder.write("card/100/b.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsMovedAwayIsHeardNoMore) {
    folder.makeFolder("gone/deep");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder / "gone", elsewhere / "gone");
    EXPECT_TRUE(tellsALaterFile());
    elsewhere.write("gone/deep/outside.jpg");
    // At its old place somebody else's file stands.
    const auto other = folder.write("gone/deep/other.jpg");
    EXPECT_TRUE(deliveries.tells({other}));
    EXPECT_THAT(deliveries.paths(), Not(Contains(folder / "gone/deep/outside.jpg")));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsRenamedTellsByItsNewName) {
    folder.write("old name/a.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder / "old name", folder / "new name");
    EXPECT_TRUE(deliveries.tells({folder / "new name/a.jpg"}));
    EXPECT_TRUE(deliveries.tells({folder.write("new name/b.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, ABurstIsOneDelivery) {
    folder.makeFolder("burst");
    watch();
    deliveries.holdUp(true);
    EXPECT_TRUE(deliveries.tells({folder.write("stopper")}));
    std::set<std::string> written;
    for (int i = 0; i < 5000; ++i)
        written.insert(folder.write("burst/" + std::to_string(i) + ".jpg"));
    deliveries.holdUp(false);
    EXPECT_TRUE(deliveries.tells(written));
    EXPECT_EQ(deliveries.count(), 2);
}

TEST_F(LinuxFolderWatcherTest, WhatTheKernelHadToDropIsFoundAllTheSame) {
    folder.makeFolder("a");
    watch();
    deliveries.holdUp(true);
    EXPECT_TRUE(deliveries.tells({folder.write("stopper")}));
    // More than a queue takes by default, and nobody is reading.
    std::set<std::string> written;
    for (int i = 0; i < 20'000; ++i)
        written.insert(folder.write("a/" + std::to_string(i), ""));
    written.insert(folder.write("new folder/at the end.jpg"));
    deliveries.holdUp(false);
    EXPECT_TRUE(deliveries.tells(written));
    EXPECT_TRUE(deliveries.tells({folder.write("new folder/one more.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, FoldersWithoutAWatchAreLookedOver) {
    folder.makeFolder("a");
    folder.makeFolder("b");
    folder.makeFolder("c");
    mostWatches = 2;
    watch();
    disk.waitForNextLook();
    const auto a = folder.write("a/1.jpg");
    const auto b = folder.write("b/1.jpg");
    const auto c = folder.write("c/1.jpg");
    EXPECT_TRUE(deliveries.tells({a, b, c}));
}

TEST_F(LinuxFolderWatcherTest, WithoutAnyWatchAllIsFoundByLooking) {
    const auto old = folder.write("old.jpg");
    mostWatches = 0;
    watch();
    disk.waitForNextLook();
    EXPECT_TRUE(deliveries.tells({folder.write("a/new.jpg")}));
    EXPECT_THAT(deliveries.paths(), Not(Contains(old)));
}

TEST_F(LinuxFolderWatcherTest, OnANetworkWhatOthersWriteIsFoundAsWell) {
    // Nothing is heard, as of what another machine writes.
    mostWatches = 0;
    disk.isRemote = true;
    const auto old = folder.write("old.jpg");
    watch();
    disk.waitForNextLook();
    const auto written = folder.write("a/from afar.jpg");
    EXPECT_TRUE(deliveries.tells({written}));
    const int before = deliveries.count();
    disk.waitForNextLook();
    EXPECT_EQ(deliveries.count(), before);
    std::ofstream(old, std::ios::app) << "longer";
    EXPECT_TRUE(deliveries.tells({old}));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatVanishesAndComesBackIsWatchedAgain) {
    const auto old = folder.write("old.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder.path(), elsewhere / "away");
    elsewhere.write("away/while it was away.jpg");
    std::filesystem::rename(elsewhere / "away", folder.path());
    EXPECT_TRUE(deliveries.tells({folder / "while it was away.jpg"}));
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries.paths(), Not(Contains(old)));
}

TEST_F(LinuxFolderWatcherTest, WhatWasThereBeforeIsNotNewThoughTheFirstLookWasCutShort) {
    const auto old = folder.write("old.jpg");
    const auto deep = folder.write("a/old.jpg");
    disk.hideOnce(folder.path());
    watch();
    disk.waitForLooks(2);
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries.paths(), AllOf(Not(Contains(old)), Not(Contains(deep))));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsNotThereYetIsWatchedFromItsFirstFileOn) {
    std::filesystem::remove(folder.path());
    watch();
    EXPECT_TRUE(deliveries.tells({folder.write("first.jpg")}));
    EXPECT_TRUE(deliveries.tells({folder.write("sub/second.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, AnotherFolderAtItsPlaceIsWatched) {
    watch();
    EXPECT_TRUE(tellsALaterFile());
    elsewhere.write("other/there already.jpg");
    std::filesystem::remove_all(folder.path());
    std::filesystem::rename(elsewhere / "other", folder.path());
    EXPECT_TRUE(deliveries.tells({folder / "there already.jpg"}));
    EXPECT_TRUE(tellsALaterFile());
}

TEST_F(LinuxFolderWatcherTest, ASymlinkToAFolderIsWatched) {
    std::filesystem::remove(folder.path());
    std::filesystem::create_directory_symlink(elsewhere.path(), folder.path());
    watch();
    elsewhere.write("sub/new.jpg");
    EXPECT_TRUE(deliveries.tells({folder / "sub/new.jpg"}));
    std::filesystem::remove(folder.path());
}

TEST_F(LinuxFolderWatcherTest, OddNamesAreToldByteByByte) {
    watch();
    EXPECT_TRUE(deliveries.tells({folder.write("not utf-8 \xff\xfe.jpg"), folder.write("line\nbreak.jpg"),
                                  folder.write(std::string(255, 'n'))}));
}

TEST_F(LinuxFolderWatcherTest, IsDestroyedInTheMiddleOfALook) {
    for (int i = 0; i < 200; ++i)
        folder.write(std::to_string(i) + "/a.jpg");
    watch();
    watching.reset();
    folder.write("too late.jpg");
    EXPECT_EQ(deliveries.count(), 0);
}

TEST_F(LinuxFolderWatcherTest, SurvivesItsVolumesUnplugging) {
    // The volume and its mounts are seen by its own thread and those that it starts alone.
    const int refusal = testing::withVolumeOfItsOwn(1 << 20, [this](const testing::VolumeOfItsOwn& volume) {
        LinuxFolderWatcher watcher(real, times);
        const auto itsWatch = watcher.watch(volume.path(), deliveries.taker());
        ASSERT_TRUE(itsWatch);
        const auto write = [&](const std::string& name) {
            std::ofstream(volume.path() + "/" + name) << "content";
            return volume.path() + "/" + name;
        };
        EXPECT_TRUE(deliveries.tells({write("plugged in.jpg")}));
        volume.unmount();
        EXPECT_TRUE(deliveries.tells({write("on what lies below.jpg")}));
        volume.mountAnew();
        EXPECT_TRUE(deliveries.tells({write("plugged in again.jpg")}));
    });
    EXPECT_THAT(refusal, testing::doneOrForbidden());
}

}  // namespace
}  // namespace vellomar
