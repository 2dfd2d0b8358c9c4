#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>
#include <linux/magic.h>

#include "platform/LinuxFileSystem.h"
#include "platform/VolumeLocality.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

bool isLocalType(std::uint32_t type) {
    return isLocalVolume({.fileSystemType = type}, "");
}

// Of a FUSE volume with device number 0:53 that a mount table describes so.
bool isLocalFuse(const std::string& typeAndSource) {
    const auto mountInfo =
        "22 27 0:21 / /proc rw,relatime - proc proc rw\n"
        "36 27 0:5 / /mnt/other rw - fuse.sshfs other:/ rw\n"
        "37 27 0:53 / /mnt/it\\040is rw,nosuid shared:1 master:2 - " +
        typeAndSource +
        " rw,user_id=0\n"
        "38 27 0:530 / /mnt/third rw - fuse.rclone third: rw\n";
    return isLocalVolume({FUSE_SUPER_MAGIC, 0, 53}, mountInfo);
}

TEST(VolumeLocality, FileSystemsOfNetworksAreNotLocal) {
    for (const std::uint32_t type :
         {0x6969U, 0x517BU, 0xFF534D42U, 0xFE534D42U, 0x564CU, 0x73757245U, 0x5346414FU, 0x6B414653U, 0x00C36400U})
        EXPECT_FALSE(isLocalType(type)) << std::hex << type;
}

TEST(VolumeLocality, FileSystemsOfClustersAreNotLocal) {
    for (const std::uint32_t type : {0x7461636FU, 0x01161970U, 0x0BD00BD0U, 0x47504653U, 0x20030528U, 0x19830326U,
                                     0xAAD7AAEAU, 0xBEEFDEADU, 0x61636673U, 0x013111A8U})
        EXPECT_FALSE(isLocalType(type)) << std::hex << type;
}

TEST(VolumeLocality, FoldersSharedWithAVirtualMachineAreNotLocal) {
    for (const std::uint32_t type : {0x01021997U, 0x7C7C6673U, 0x786F4256U, 0xBACBACBCU})
        EXPECT_FALSE(isLocalType(type)) << std::hex << type;
}

TEST(VolumeLocality, FileSystemsOfDisksAreLocal) {
    // ext4, XFS, Btrfs, F2FS, FAT, exFAT, NTFS, UDF, ISO 9660, tmpfs, overlay, and one that nobody knows
    for (const std::uint32_t type : {0xEF53U, 0x58465342U, 0x9123683EU, 0xF2F52010U, 0x4D44U, 0x2011BAB0U, 0x7366746EU,
                                     0x15013346U, 0x9660U, 0x01021994U, 0x794C7630U, 0x12345678U})
        EXPECT_TRUE(isLocalType(type)) << std::hex << type;
}

TEST(VolumeLocality, OfFuseTheNameInTheMountTableTells) {
    for (const auto* remote :
         {"fuse.sshfs user@server:/", "fuse.rclone drive:", "fuse.davfs2 https://server/", "fuse.davfs x",
          "fuse.s3fs s3fs", "fuse.gvfsd-fuse gvfsd-fuse", "fuse.glusterfs server:/volume", "fuse.ceph-fuse ceph-fuse",
          "fuse.goofys bucket", "fuse.google-drive-ocamlfuse x", "fuse.kio-fuse kio-fuse", "fuse.beegfs x",
          "fuse.xrootdfs x", "fuse.vmhgfs-fuse vmhgfs-fuse", "virtiofs photos"})
        EXPECT_FALSE(isLocalFuse(remote)) << remote;
    for (const auto* local : {"fuseblk /dev/sdb1", "fuse.mergerfs /a:/b", "fuse.gocryptfs /plain", "fuse.encfs encfs",
                              "fuse.bindfs /home/me", "fuse.portal portal", "fuse.jmtpfs jmtpfs", "fuse.sshfsx x"})
        EXPECT_TRUE(isLocalFuse(local)) << local;
}

TEST(VolumeLocality, FuseWithoutANameIsJudgedByWhatWasMounted) {
    EXPECT_FALSE(isLocalFuse("fuse https://server/photos"));
    EXPECT_FALSE(isLocalFuse("fuse sshfs#user@server:/photos"));
    EXPECT_TRUE(isLocalFuse("fuse /dev/fuse"));
    EXPECT_TRUE(isLocalFuse("fuse archive"));
}

TEST(VolumeLocality, OnlyTheEntryOfItsOwnDeviceCounts) {
    constexpr std::string_view kOthers =
        "36 27 0:5 / /mnt rw - fuse.sshfs other:/ rw\n"
        "37 27 1:53 / /mnt rw - fuse.sshfs other:/ rw\n"
        "38 27 0:530 / /mnt rw - fuse.sshfs other:/ rw\n"
        "0:53 0:53 0:5 0:53 0:53 rw - fuse.sshfs 0:53 rw\n";
    EXPECT_TRUE(isLocalVolume({FUSE_SUPER_MAGIC, 0, 53}, kOthers));
    EXPECT_FALSE(isLocalVolume({FUSE_SUPER_MAGIC, 1, 53}, kOthers));
    EXPECT_FALSE(isLocalVolume({FUSE_SUPER_MAGIC, 0, 530}, kOthers));
}

TEST(VolumeLocality, ABrokenMountTableIsNoReasonToBeCautious) {
    for (const auto* text : {"", "\n", "\n\n", " ", "36", "36 27 0:53", "36 27 0:53 / /mnt rw", "36 27 0:53 - ",
                             "36 27 0:53 / /mnt rw - ", "36 27 0:53 / /mnt rw -", " - fuse.sshfs"})
        EXPECT_TRUE(isLocalVolume({FUSE_SUPER_MAGIC, 0, 53}, text)) << text;
    EXPECT_FALSE(isLocalVolume({FUSE_SUPER_MAGIC, 0, 53}, "1 2 0:53 / / rw - fuse.sshfs"));
}

TEST(VolumeLocality, TheDiskOfThisMachineIsLocal) {
    const testing::TemporaryFolder folder(testing::TemporaryFolder::Where::inMemory);
    LinuxFileSystem fileSystem;
    const auto file = folder.write("file");
    std::filesystem::create_symlink(file, folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    for (const auto& path : {folder.path(), file, folder / "link", std::string("/proc")}) {
        SCOPED_TRACE(path);
        const auto isLocal = fileSystem.volumeIsLocal(path);
        ASSERT_TRUE(isLocal.has_value());
        EXPECT_TRUE(*isLocal);
    }
    for (const auto& path : {folder / "missing", folder / "dangling"}) {
        SCOPED_TRACE(path);
        const auto isLocal = fileSystem.volumeIsLocal(path);
        ASSERT_FALSE(isLocal.has_value());
        EXPECT_TRUE(isSystemError(isLocal.error(), ENOENT));
    }
}

}  // namespace
}  // namespace vellomar
