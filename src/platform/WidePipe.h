// Pipes that take a program's whole output before anybody reads.
#pragma once

#include <string>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace vellomar {

// Bytes that a user without privileges may give a pipe, unless the administrator says otherwise.
inline constexpr int kWidePipeCapacity = 1 << 20;

// Both ends close when a program is started.
struct Pipe {
    FileDescriptor readEnd;   // reading never waits
    FileDescriptor writeEnd;  // writing waits while the pipe is full
};

// A pipe that holds `capacity` bytes; where so much is refused, half of it, half of that, and so on, down to what every
// pipe has. Fails when this process has too many descriptors. Any thread.
[[nodiscard]] Expected<Pipe> makeWidePipe(int capacity = kWidePipeCapacity);

// What stands in the pipe now, up to its end or to where the writers have got. Waits for nobody. Any thread.
[[nodiscard]] std::string readWhatIsThere(const FileDescriptor& readEnd);

}  // namespace vellomar
