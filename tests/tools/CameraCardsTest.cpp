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
    void SetUp() override { offered.emplace(mainActor, fileSystem, mounts, taker()); }

    [[nodiscard]] std::function<void(const std::string&)> taker() {
        return [this](const std::string& card) { tellings.push_back(card); };
    }

    [[nodiscard]] std::vector<std::string> told() {
        mainActor.runPending();
        return tellings;
    }

    LinuxFileSystem fileSystem;
    QueueMainActor mainActor;
    testing::ScriptedMountWatcher mounts;
    TemporaryFolder folder;
    std::vector<std::string> tellings;
    std::optional<CameraCards> offered;
};

TEST_F(CameraCardsTest, ACameraFolderMakesAVolumeACard) {
    folder.makeFolder("DCIM");
    mounts.mount(folder.path());
    EXPECT_THAT(tellings, IsEmpty()) << "told on the watch's thread";
    EXPECT_THAT(told(), ElementsAre(folder.path()));
}

TEST_F(CameraCardsTest, AVolumeWithoutOneIsPassedOverInSilence) {
    folder.makeFolder("Pictures/DCIM");
    mounts.mount(folder.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, AFileOfThatNameCountsAsWell) {
    folder.write("DCIM");
    mounts.mount(folder.path());
    EXPECT_THAT(told(), ElementsAre(folder.path()));
}

TEST_F(CameraCardsTest, OtherCaseIsAnotherName) {
    folder.makeFolder("dcim");
    mounts.mount(folder.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, ALinkThatLeadsNowhereIsNothing) {
    std::filesystem::create_symlink("nowhere", folder / "DCIM");
    mounts.mount(folder.path());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, TheKindOfVolumeDoesNotMatter) {
    folder.makeFolder("DCIM");
    for (const char* type : {"exfat", "nfs4", "iso9660", "fuse.gvfsd-fuse", "ext4"})
        mounts.mount(folder.path(), type);
    EXPECT_EQ(told().size(), 5U);
}

TEST_F(CameraCardsTest, WhatOnlyMountsOthersIsNotLookedInto) {
    folder.makeFolder("DCIM");
    mounts.mount(folder.path(), "autofs");
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, NobodyIsToldOnceItIsGone) {
    folder.makeFolder("DCIM");
    mounts.mount(folder.path());
    offered.reset();
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, WithoutNewsOfMountsThereAreNoCards) {
    testing::ScriptedMountWatcher refusing;
    refusing.isRefusing = true;
    const CameraCards cards(mainActor, fileSystem, refusing, taker());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(CameraCardsTest, ARealCardIsToldWhenItIsMounted) {
    const int refusal = testing::withVolumeOfItsOwn(1 << 20, [this](const testing::VolumeOfItsOwn& volume) {
        LinuxMountWatcher realMounts;
        const CameraCards cards(mainActor, fileSystem, realMounts, taker());
        // The folder that lies below is what is bound over the volume's place.
        folder.makeFolder("DCIM/100CANON");
        volume.bind(folder.path());
        mainActor.runUntil([this] { return !tellings.empty(); });
        EXPECT_THAT(tellings, ElementsAre(volume.path()));
        volume.unmount();
    });
    EXPECT_THAT(refusal, testing::doneOrForbidden());
}

}  // namespace
}  // namespace vellomar
