// The kernel's table of mounted volumes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

struct Mount {
    // Tells this mount from all others that there are at the same time, and from an earlier one at the same place.
    std::string key;

    std::string device;  // "98:0", the device number that its files have
    std::string path;    // where it is mounted
    std::string type;    // such as "vfat", or "fuse.sshfs"
    std::string source;  // what was mounted, in the words of the type

    bool operator==(const Mount&) const = default;
};

// The mounts in the text of /proc/self/mountinfo, in its order; lines of another form are passed over. Pure; any
// thread.
[[nodiscard]] std::vector<Mount> mountsIn(std::string_view mountInfo);

// Those of `now` that `before` does not have.
[[nodiscard]] std::vector<Mount> newMounts(const std::vector<Mount>& before, const std::vector<Mount>& now);

}  // namespace vellomar
