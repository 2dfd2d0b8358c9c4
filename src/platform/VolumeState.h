// What a volume says of itself.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Error.h"

namespace vellomar {

// A volume as statvfs() tells of it.
struct VolumeState {
    std::uint64_t flags = 0;            // those that it was mounted with, such as ST_RDONLY
    std::uint64_t fragmentSize = 0;     // bytes; the unit of the count below
    std::uint64_t availableBlocks = 0;  // without those that are kept for privileged users
};

// Of the volume that holds what stands at `path`; symlinks are followed. Fails when nothing stands there. Any thread.
[[nodiscard]] Expected<VolumeState> readVolume(const std::string& path);

[[nodiscard]] bool isReadOnly(const VolumeState& volume);

// Fails with EOVERFLOW where the volume claims to have more than a signed number of 64 bits can tell, as some shares do
// that know no limit.
[[nodiscard]] Expected<std::int64_t> availableBytesOf(const VolumeState& volume);

}  // namespace vellomar
