#include "platform/VolumeLocality.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <iterator>

#include <fmt/format.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include "platform/MountTable.h"

namespace vellomar {
namespace {

// Those that the kernel's own header does not name are of modules that are kept outside the kernel.
constexpr std::array<std::uint32_t, 23> kRemoteTypes = {
    NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, SMB2_SUPER_MAGIC, CIFS_SUPER_MAGIC, NCP_SUPER_MAGIC,   CODA_SUPER_MAGIC,
    AFS_SUPER_MAGIC, AFS_FS_MAGIC,    CEPH_SUPER_MAGIC, V9FS_MAGIC,       OCFS2_SUPER_MAGIC,
    0x01161970,  // GFS2
    0x0BD00BD0,  // Lustre
    0x47504653,  // GPFS
    0x20030528,  // OrangeFS
    0x19830326,  // BeeGFS
    0xAAD7AAEA,  // Panasas
    0xBEEFDEAD,  // StorNext
    0x61636673,  // ACFS
    0x013111A8,  // IBRIX
    0x7C7C6673,  // shared folder of Parallels
    0x786F4256,  // shared folder of VirtualBox
    0xBACBACBC,  // shared folder of VMware
};

// As they stand in a mount table, sorted. Behind some of them there may be a camera on a cable (gvfsd-fuse), but as a
// rule there is a server.
constexpr std::array<std::string_view, 36> kRemoteFuseTypes = {
    "fuse.beegfs",
    "fuse.blobfuse",
    "fuse.blobfuse2",
    "fuse.ceph-fuse",
    "fuse.curlftpfs",
    "fuse.davfs",
    "fuse.davfs2",
    "fuse.dbxfs",
    "fuse.fusesmb",
    "fuse.gcsfuse",
    "fuse.glusterfs",
    "fuse.goofys",
    "fuse.google-drive-ocamlfuse",
    "fuse.gvfsd-fuse",
    "fuse.httpfs",
    "fuse.hubicfuse",
    "fuse.juicefs",
    "fuse.kio-fuse",
    "fuse.lizardfs",
    "fuse.mfs",
    "fuse.moosefs",
    "fuse.nfs",
    "fuse.onedriver",
    "fuse.pcloud",
    "fuse.rclone",
    "fuse.s3fs",
    "fuse.s3ql",
    "fuse.saunafs",
    "fuse.seadrive",
    "fuse.seaweedfs",
    "fuse.smbnetfs",
    "fuse.sshfs",
    "fuse.vmhgfs-fuse",
    "fuse.wdfs",
    "fuse.xrootdfs",
    "virtiofs",
};
static_assert(std::ranges::is_sorted(kRemoteFuseTypes));

// "https://server/folder", "sshfs#user@server:folder". Some programs do not tell their name, but what they mounted.
bool namesServer(std::string_view source) {
    return source.find("://") != std::string_view::npos || source.find('#') != std::string_view::npos;
}

bool isRemoteFuse(const Mount& mount) {
    if (mount.type == "fuse") return namesServer(mount.source);
    return std::ranges::binary_search(kRemoteFuseTypes, mount.type);
}

bool isFuse(const VolumeKind& volume) {
    return volume.fileSystemType == FUSE_SUPER_MAGIC;
}

std::string readMountInfo() {
    std::ifstream file("/proc/self/mountinfo", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

bool isLocalVolume(const VolumeKind& volume, std::string_view mountInfo) {
    if (!isFuse(volume)) return std::ranges::find(kRemoteTypes, volume.fileSystemType) == kRemoteTypes.end();
    const auto device = fmt::format("{}:{}", volume.deviceMajor, volume.deviceMinor);
    const auto mounts = mountsIn(mountInfo);
    const auto mount = std::ranges::find(mounts, device, &Mount::device);
    return mount == mounts.end() || !isRemoteFuse(*mount);
}

Expected<bool> readVolumeLocality(const std::string& path) {
    struct statfs volume {};
    if (::statfs(path.c_str(), &volume) != 0) return systemFailure(errno);
    struct stat file {};
    if (::stat(path.c_str(), &file) != 0) return systemFailure(errno);
    const VolumeKind kind{static_cast<std::uint32_t>(volume.f_type), major(file.st_dev), minor(file.st_dev)};
    return isLocalVolume(kind, isFuse(kind) ? readMountInfo() : std::string());
}

}  // namespace vellomar
