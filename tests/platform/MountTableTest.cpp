#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/MountTable.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kRoot = "21 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n";
constexpr std::string_view kCard =
    "36 21 8:1 / /run/media/jo/EOS_DIGITAL rw,nosuid shared:2 - vfat /dev/sdb1 rw,uid=1000\n";

std::string joined(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const auto line : lines)
        text += line;
    return text;
}

TEST(MountTable, ReadsPathAndTypeOfEachLine) {
    const auto mounts = mountsIn(joined({kRoot, kCard}));
    ASSERT_EQ(mounts.size(), 2U);
    EXPECT_EQ(mounts[0].path, "/");
    EXPECT_EQ(mounts[0].type, "ext4");
    EXPECT_EQ(mounts[1].path, "/run/media/jo/EOS_DIGITAL");
    EXPECT_EQ(mounts[1].type, "vfat");
    EXPECT_EQ(mounts[1].device, "8:1");
    EXPECT_EQ(mounts[1].source, "/dev/sdb1");
}

TEST(MountTable, ALineWithoutOptionalWordsIsReadAsWell) {
    const auto mounts = mountsIn("36 21 8:1 / /mnt rw - tmpfs none rw");
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].path, "/mnt");
    EXPECT_EQ(mounts[0].type, "tmpfs");
}

TEST(MountTable, EscapedBytesInPathsAreThemselvesAgain) {
    const auto mounts = mountsIn(R"(36 21 8:1 / /run/media/jo/MY\040CARD\011\012\134040\xff rw - vfat x rw)");
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].path, "/run/media/jo/MY CARD\t\n\\040\\xff");
}

TEST(MountTable, EscapedBytesInSourcesAsWell) {
    const auto mounts = mountsIn(R"(36 21 0:44 / /mnt rw - fuse sshfs\043jo@server:my\040photos rw)");
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].source, "sshfs#jo@server:my photos");
}

TEST(MountTable, OtherLinesArePassedOver) {
    EXPECT_THAT(mountsIn(""), IsEmpty());
    EXPECT_THAT(mountsIn("\n\nnonsense\n36 21 - \n1 2 3 4 - type\n"), IsEmpty());
}

TEST(MountTable, WhatWasMountedInBetweenIsNew) {
    const auto before = mountsIn(kRoot);
    const auto now = mountsIn(joined({kRoot, kCard}));
    EXPECT_THAT(newMounts(before, now), ElementsAre(now[1]));
    EXPECT_THAT(newMounts(now, now), IsEmpty());
    EXPECT_THAT(newMounts(now, before), IsEmpty());
}

TEST(MountTable, ACardThatWasTakenOutAndPutInAgainIsNew) {
    const auto before = mountsIn(kCard);
    const auto now = mountsIn("37 21 8:1 / /run/media/jo/EOS_DIGITAL rw,nosuid shared:2 - vfat /dev/sdb1 rw\n");
    EXPECT_EQ(newMounts(before, now).size(), 1U);
}

TEST(MountTable, OtherOptionsMakeNoOtherMount) {
    const auto before = mountsIn(kCard);
    const auto now = mountsIn("36 21 8:1 / /run/media/jo/EOS_DIGITAL ro master:4 - vfat /dev/sdb1 ro\n");
    EXPECT_THAT(newMounts(before, now), IsEmpty());
}

}  // namespace
}  // namespace vellomar
