// What the decoder's process gives up before it looks at the first file. Hostile bytes may make it do anything that it
// still can.
#pragma once

#include <cstddef>

#include "platform/Error.h"

namespace vellomar {

// At most `mostMemory` bytes of its own (a mapped file does not count) and 512 MiB of each picture that it writes, few
// open files, no core dump with parts of a private photo in it. Sanitizers need more
// memory than that, so there is no limit to it with them.
[[nodiscard]] Expected<void> limitResources(std::size_t mostMemory);

// From here on the process computes, and talks over what it has open: it opens no file, reaches no network, starts no
// program, sends no signal to others, and has no privileges, even when root started it. What it must not do fails with
// EPERM. Call it when the libraries are ready and before any thread is started. Fails where the kernel knows no such
// filters; then only the privileges are gone.
[[nodiscard]] Expected<void> confine();

}  // namespace vellomar
