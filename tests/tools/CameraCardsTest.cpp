#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "platform/watch/LinuxMountWatcher.h"
#include "support/QueueMainActor.h"
#include "support/ScriptedWatchers.h"
#include "support/TemporaryFolder.h"
#include "support/VolumeOfItsOwn.h"
#include "tools/CameraCards.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::QueueMainActor;
using testing::TemporaryFolder;

class CameraCardsTest : public ::testing::Test {
protected:
    void SetUp() override { cards_.emplace(mainActor_, fileSystem_, mounts_, taker()); }

    [[nodiscard]] std::function<void(const std::string&)> taker() {
        return [this](const std::string& card) { told_.push_back(card); };
    }

    [[nodiscard]] std::vector<std::string> told() {
        mainActor_.runPending();
        return told_;
    }

    LinuxFileSystem fileSystem_;
    QueueMainActor mainActor_;
    testing::ScriptedMountWatcher mounts_;
    TemporaryFolder volume_;
    std::vector<std::string> told_;
    std::optional<CameraCards> cards_;
};

TEST_F(CameraCardsTest, ACameraFolderMakesAVolumeACard) {
    volume_.makeFolder("DCIM");
    mounts_.mount(volume_.path());
    EXPECT_THAT(told_, IsEmpty()) << "told on the watch's thread";
    EXPECT_THAT(told(), ElementsAre(volume_.path()));
}

TEST_F(CameraCardsTest, AVolumeWithoutOneIsPassedOverInSilence) {
    volume_.makeFolder("Pictures/DCIM");
    mounts_.mount(volume_.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, AFileOfThatNameCountsAsWell) {
    volume_.write("DCIM");
    mounts_.mount(volume_.path());
    EXPECT_THAT(told(), ElementsAre(volume_.path()));
}

TEST_F(CameraCardsTest, OtherCaseIsAnotherName) {
    volume_.makeFolder("dcim");
    mounts_.mount(volume_.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, ALinkThatLeadsNowhereIsNothing) {
    std::filesystem::create_symlink("nowhere", volume_ / "DCIM");
    mounts_.mount(volume_.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, TheKindOfVolumeDoesNotMatter) {
    volume_.makeFolder("DCIM");
    for (const char* type : {"exfat", "nfs4", "iso9660", "fuse.gvfsd-fuse", "ext4"})
        mounts_.mount(volume_.path(), type);
    EXPECT_EQ(told().size(), 5U);
}

TEST_F(CameraCardsTest, WhatOnlyMountsOthersIsNotLookedInto) {
    volume_.makeFolder("DCIM");
    mounts_.mount(volume_.path(), "autofs");
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, NobodyIsToldOnceItIsGone) {
    volume_.makeFolder("DCIM");
    mounts_.mount(volume_.path());
    cards_.reset();
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, WithoutNewsOfMountsThereAreNoCards) {
    testing::ScriptedMountWatcher refusing;
    refusing.isRefusing = true;
    const CameraCards cards(mainActor_, fileSystem_, refusing, taker());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, ARealCardIsToldWhenItIsMounted) {
    const int refusal = testing::withVolumeOfItsOwn(1 << 20, [this](const testing::VolumeOfItsOwn& volume) {
        LinuxMountWatcher mounts;
        const CameraCards cards(mainActor_, fileSystem_, mounts, taker());
        // The folder that lies below is what is bound over the volume's place.
        volume_.makeFolder("DCIM/100CANON");
        volume.bind(volume_.path());
        mainActor_.runUntil([this] { return !told_.empty(); });
        EXPECT_THAT(told_, ElementsAre(volume.path()));
        volume.unmount();
    });
    EXPECT_THAT(refusal, testing::doneOrForbidden());
}

}  // namespace
}  // namespace vellomar
