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

    void waitForLooks(int count) {
        for (int seen = looks_; seen < count; seen = looks_)
            looks_.wait(seen);
    }

    // Until a look that begins after this call has been followed by another.
    void waitForNextLook() { waitForLooks(looks_ + 2); }

    std::atomic<bool> isRemote = false;

private:
    std::atomic<int> looks_ = 0;
};

class LinuxFolderWatcherTest : public ::testing::Test {
protected:
    void watch() { watchWith(LinuxFolderWatcher(volume_, times_, mostWatches_)); }

    void watchWith(LinuxFolderWatcher watcher) {
        auto made = watcher.watch(folder_.path(), deliveries_.taker());
        ASSERT_TRUE(made);
        watch_ = *std::move(made);
    }

    // Something else that arrives and is told: whatever was to be told before has been told by then.
    [[nodiscard]] bool tellsALaterFile() {
        const auto path = folder_.write("later-" + std::to_string(later_++));
        return deliveries_.tells({path});
    }

    LinuxFileSystem real_;
    CountedVolume volume_{real_};
    WatchTimes times_{20ms, 40ms, 10ms};
    std::size_t mostWatches_ = InotifyWatches::kNoLimit;
    TemporaryFolder folder_;
    TemporaryFolder elsewhere_;
    Deliveries deliveries_;
    std::unique_ptr<FolderWatch> watch_;
    int later_ = 0;
};

TEST_F(LinuxFolderWatcherTest, TellsFilesOfAnyKindInAnyDepth) {
    folder_.makeFolder("a/b/c");
    watch();
    const auto photo = folder_.write("photo.jpg");
    const auto deep = folder_.write("a/b/c/deep.xmp");
    const auto hidden = folder_.write("a/.hidden");
    EXPECT_TRUE(deliveries_.tells({photo, deep, hidden}));
}

TEST_F(LinuxFolderWatcherTest, WhatWasThereBeforeIsNeverTold) {
    const auto old = folder_.write("old.jpg");
    const auto deep = folder_.write("a/b/old.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries_.paths(), AllOf(Not(Contains(old)), Not(Contains(deep))));
}

TEST_F(LinuxFolderWatcherTest, WhatIsWrittenToAgainIsTold) {
    const auto old = folder_.write("old.jpg");
    watch();
    std::ofstream(old, std::ios::app) << "more";
    EXPECT_TRUE(deliveries_.tells({old}));
}

TEST_F(LinuxFolderWatcherTest, AFileArrivesWhenItIsClosed) {
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::ofstream slow(folder_ / "slow.mov");
    slow << "the beginning" << std::flush;
    EXPECT_TRUE(tellsALaterFile());
    slow << "the end" << std::flush;
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries_.paths(), Not(Contains(folder_ / "slow.mov")));
    slow.close();
    EXPECT_TRUE(deliveries_.tells({folder_ / "slow.mov"}));
}

TEST_F(LinuxFolderWatcherTest, TellsAtomicSavesMovesAndLinks) {
    const auto origin = folder_.write("origin.jpg");
    const auto outside = elsewhere_.write("outside.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder_.write(".save.tmp"), folder_ / "saved.jpg");
    std::filesystem::rename(outside, folder_ / "moved-in.jpg");
    std::filesystem::create_hard_link(origin, folder_ / "linked.jpg");
    std::filesystem::create_symlink(origin, folder_ / "symlink.jpg");
    EXPECT_TRUE(deliveries_.tells(
        {folder_ / "saved.jpg", folder_ / "moved-in.jpg", folder_ / "linked.jpg", folder_ / "symlink.jpg"}));
    EXPECT_THAT(deliveries_.paths(), Not(Contains(folder_ / ".save.tmp")));
}

TEST_F(LinuxFolderWatcherTest, WhatIsReadRemovedOrMovedAwayIsNotTold) {
    const auto read = folder_.write("read.jpg");
    const auto removed = folder_.write("removed.jpg");
    const auto moved = folder_.write("moved.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_EQ(testing::contentOf(read), "content");
    std::filesystem::remove(removed);
    std::filesystem::rename(moved, elsewhere_ / "moved.jpg");
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries_.paths(), AllOf(Not(Contains(read)), Not(Contains(removed)), Not(Contains(moved))));
}

TEST_F(LinuxFolderWatcherTest, FoldersThatAppearAreWatchedFromTheirFirstFileOn) {
    watch();
    std::set<std::string> written;
    for (int i = 0; i < 50; ++i)
        written.insert(folder_.write(std::to_string(i) + "/deeper/than/that/first.jpg"));
    EXPECT_TRUE(deliveries_.tells(written));
    for (int i = 0; i < 50; ++i)
        written.insert(folder_.write(std::to_string(i) + "/deeper/than/that/second.jpg"));
    EXPECT_TRUE(deliveries_.tells(written));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsMovedInBringsItsFilesAndIsWatched) {
    elsewhere_.write("card/100/a.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(elsewhere_ / "card", folder_ / "card");
    EXPECT_TRUE(deliveries_.tells({folder_ / "card/100/a.jpg"}));
    EXPECT_TRUE(deliveries_.tells({folder_.write("card/100/b.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsMovedAwayIsHeardNoMore) {
    folder_.makeFolder("gone/deep");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder_ / "gone", elsewhere_ / "gone");
    EXPECT_TRUE(tellsALaterFile());
    elsewhere_.write("gone/deep/outside.jpg");
    // At its old place somebody else's file stands.
    const auto other = folder_.write("gone/deep/other.jpg");
    EXPECT_TRUE(deliveries_.tells({other}));
    EXPECT_THAT(deliveries_.paths(), Not(Contains(folder_ / "gone/deep/outside.jpg")));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsRenamedTellsByItsNewName) {
    folder_.write("old name/a.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder_ / "old name", folder_ / "new name");
    EXPECT_TRUE(deliveries_.tells({folder_ / "new name/a.jpg"}));
    EXPECT_TRUE(deliveries_.tells({folder_.write("new name/b.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, ABurstIsOneDelivery) {
    folder_.makeFolder("burst");
    watch();
    deliveries_.holdUp(true);
    EXPECT_TRUE(deliveries_.tells({folder_.write("stopper")}));
    std::set<std::string> written;
    for (int i = 0; i < 5000; ++i)
        written.insert(folder_.write("burst/" + std::to_string(i) + ".jpg"));
    deliveries_.holdUp(false);
    EXPECT_TRUE(deliveries_.tells(written));
    EXPECT_EQ(deliveries_.count(), 2);
}

TEST_F(LinuxFolderWatcherTest, WhatTheKernelHadToDropIsFoundAllTheSame) {
    folder_.makeFolder("a");
    watch();
    deliveries_.holdUp(true);
    EXPECT_TRUE(deliveries_.tells({folder_.write("stopper")}));
    // More than a queue takes by default, and nobody is reading.
    std::set<std::string> written;
    for (int i = 0; i < 20'000; ++i)
        written.insert(folder_.write("a/" + std::to_string(i), ""));
    written.insert(folder_.write("new folder/at the end.jpg"));
    deliveries_.holdUp(false);
    EXPECT_TRUE(deliveries_.tells(written));
    EXPECT_TRUE(deliveries_.tells({folder_.write("new folder/one more.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, FoldersWithoutAWatchAreLookedOver) {
    folder_.makeFolder("a");
    folder_.makeFolder("b");
    folder_.makeFolder("c");
    mostWatches_ = 2;
    watch();
    volume_.waitForNextLook();
    const auto a = folder_.write("a/1.jpg");
    const auto b = folder_.write("b/1.jpg");
    const auto c = folder_.write("c/1.jpg");
    EXPECT_TRUE(deliveries_.tells({a, b, c}));
}

TEST_F(LinuxFolderWatcherTest, WithoutAnyWatchAllIsFoundByLooking) {
    const auto old = folder_.write("old.jpg");
    mostWatches_ = 0;
    watch();
    volume_.waitForNextLook();
    EXPECT_TRUE(deliveries_.tells({folder_.write("a/new.jpg")}));
    EXPECT_THAT(deliveries_.paths(), Not(Contains(old)));
}

TEST_F(LinuxFolderWatcherTest, OnANetworkWhatOthersWriteIsFoundAsWell) {
    // Nothing is heard, as of what another machine writes.
    mostWatches_ = 0;
    volume_.isRemote = true;
    const auto old = folder_.write("old.jpg");
    watch();
    volume_.waitForNextLook();
    const auto written = folder_.write("a/from afar.jpg");
    EXPECT_TRUE(deliveries_.tells({written}));
    const int deliveries = deliveries_.count();
    volume_.waitForNextLook();
    EXPECT_EQ(deliveries_.count(), deliveries);
    std::ofstream(old, std::ios::app) << "longer";
    EXPECT_TRUE(deliveries_.tells({old}));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatVanishesAndComesBackIsWatchedAgain) {
    const auto old = folder_.write("old.jpg");
    watch();
    EXPECT_TRUE(tellsALaterFile());
    std::filesystem::rename(folder_.path(), elsewhere_ / "away");
    elsewhere_.write("away/while it was away.jpg");
    std::filesystem::rename(elsewhere_ / "away", folder_.path());
    EXPECT_TRUE(deliveries_.tells({folder_ / "while it was away.jpg"}));
    EXPECT_TRUE(tellsALaterFile());
    EXPECT_THAT(deliveries_.paths(), Not(Contains(old)));
}

TEST_F(LinuxFolderWatcherTest, AFolderThatIsNotThereYetIsWatchedFromItsFirstFileOn) {
    std::filesystem::remove(folder_.path());
    watch();
    EXPECT_TRUE(deliveries_.tells({folder_.write("first.jpg")}));
    EXPECT_TRUE(deliveries_.tells({folder_.write("sub/second.jpg")}));
}

TEST_F(LinuxFolderWatcherTest, AnotherFolderAtItsPlaceIsWatched) {
    watch();
    EXPECT_TRUE(tellsALaterFile());
    elsewhere_.write("other/there already.jpg");
    std::filesystem::remove_all(folder_.path());
    std::filesystem::rename(elsewhere_ / "other", folder_.path());
    EXPECT_TRUE(deliveries_.tells({folder_ / "there already.jpg"}));
    EXPECT_TRUE(tellsALaterFile());
}

TEST_F(LinuxFolderWatcherTest, ASymlinkToAFolderIsWatched) {
    std::filesystem::remove(folder_.path());
    std::filesystem::create_directory_symlink(elsewhere_.path(), folder_.path());
    watch();
    elsewhere_.write("sub/new.jpg");
    EXPECT_TRUE(deliveries_.tells({folder_ / "sub/new.jpg"}));
    std::filesystem::remove(folder_.path());
}

TEST_F(LinuxFolderWatcherTest, OddNamesAreToldByteByByte) {
    watch();
    EXPECT_TRUE(deliveries_.tells({folder_.write("not utf-8 \xff\xfe.jpg"), folder_.write("line\nbreak.jpg"),
                                   folder_.write(std::string(255, 'n'))}));
}

TEST_F(LinuxFolderWatcherTest, IsDestroyedInTheMiddleOfALook) {
    for (int i = 0; i < 200; ++i)
        folder_.write(std::to_string(i) + "/a.jpg");
    watch();
    watch_.reset();
    folder_.write("too late.jpg");
    EXPECT_EQ(deliveries_.count(), 0);
}

TEST_F(LinuxFolderWatcherTest, SurvivesItsVolumesUnplugging) {
    // The volume and its mounts are seen by its own thread and those that it starts alone.
    const int refusal = testing::withVolumeOfItsOwn(1 << 20, [](const testing::VolumeOfItsOwn& volume) {
        LinuxFileSystem fileSystem;
        Deliveries deliveries;
        LinuxFolderWatcher watcher(fileSystem, {20ms, 40ms, 10ms});
        const auto watch = watcher.watch(volume.path(), deliveries.taker());
        ASSERT_TRUE(watch);
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
