#include <condition_variable>
#include <mutex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/watch/LinuxMountWatcher.h"
#include "support/TemporaryFolder.h"
#include "support/VolumeOfItsOwn.h"

namespace vellomar {
namespace {

class MountNews {
public:
    [[nodiscard]] MountWatcher::Deliver taker() {
        return [this](const Mount& mount) {
            const std::scoped_lock lock(lock_);
            mounts_.push_back(mount);
            told_.notify_all();
        };
    }

    // The mounts told so far, as soon as there are that many.
    [[nodiscard]] std::vector<Mount> atLeast(std::size_t count) {
        std::unique_lock lock(lock_);
        EXPECT_TRUE(told_.wait_for(lock, std::chrono::seconds(60), [&] { return mounts_.size() >= count; }));
        return mounts_;
    }

private:
    std::mutex lock_;
    std::condition_variable told_;
    std::vector<Mount> mounts_;
};

TEST(LinuxMountWatcher, TellsEachMountOnceAndNoneFromBefore) {
    const int refusal = testing::withVolumeOfItsOwn(1 << 20, [](const testing::VolumeOfItsOwn& volume) {
        MountNews news;
        LinuxMountWatcher watcher;
        const auto watch = watcher.watch(news.taker());
        ASSERT_TRUE(watch);
        // Other options of a mount that is there are no news.
        volume.makeReadOnly();
        const testing::TemporaryFolder first;
        volume.bind(first.path());
        ASSERT_EQ(news.atLeast(1).size(), 1U);
        EXPECT_EQ(news.atLeast(1)[0].path, volume.path());
        const testing::TemporaryFolder second;
        volume.bind(second.path());
        EXPECT_EQ(news.atLeast(2).size(), 2U);
        volume.unmount();
        volume.unmount();
    });
    EXPECT_THAT(refusal, testing::doneOrForbidden());
}

TEST(LinuxMountWatcher, EndsWithoutWaitingForAMount) {
    MountNews news;
    LinuxMountWatcher watcher;
    auto watch = watcher.watch(news.taker());
    ASSERT_TRUE(watch);
    watch->reset();
    EXPECT_EQ(news.atLeast(0).size(), 0U);
}

}  // namespace
}  // namespace vellomar
