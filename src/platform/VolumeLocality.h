// Whether a volume is attached to this machine or reached over a network.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Error.h"

namespace vellomar {

// How the kernel tells volumes apart.
struct VolumeKind {
    std::uint32_t fileSystemType = 0;  // the magic number of statfs()
    unsigned deviceMajor = 0;          // of the device number that the volume's files have
    unsigned deviceMinor = 0;
};

// Whether the volume is attached to this machine. A folder that another system shares is not, even where that system is
// the host of this virtual machine: every look at a file is a question to somebody else. Of a cluster's file system
// neither, though its disks may be wired to this machine.
//
// What a FUSE volume is only its entry in `mountInfo` tells, which is the text of /proc/self/mountinfo; it may be empty
// for all others. A kind that is unknown, or has no entry, counts as attached. Pure; any thread.
[[nodiscard]] bool isLocalVolume(const VolumeKind& volume, std::string_view mountInfo);

// As above, of the volume that holds what stands at `path`; symlinks are followed. Fails when nothing stands there.
// Any thread.
[[nodiscard]] Expected<bool> readVolumeLocality(const std::string& path);

}  // namespace vellomar
