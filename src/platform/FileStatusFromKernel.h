// What statx() tells, in our terms. For the files that call the kernel.
#pragma once

#include "platform/FileSystem.h"

struct statx;

namespace vellomar {

// Fields that FileStatus is made of, for statx()'s mask.
extern const unsigned kStatusMask;

[[nodiscard]] FileStatus fileStatusFrom(const struct statx& kernelStatus);

// statx() of `path` below the open folder `folder` (AT_FDCWD for absolute paths), with AT_* flags.
[[nodiscard]] Expected<FileStatus> readStatus(int folder, const char* path, int flags);

}  // namespace vellomar
