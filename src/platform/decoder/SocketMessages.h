// Messages between this program and its decoder, over a pair of connected sockets that keep them apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace vellomar {

using MessageBytes = std::vector<std::uint8_t>;

// A message is never longer than this, so that one buffer and one call of the kernel do for it.
inline constexpr std::size_t kMostBytesOfMessage = 64U << 10U;

// Nor does it bring more open files.
inline constexpr std::size_t kMostDescriptorsOfMessage = 2;

struct SocketMessage {
    MessageBytes bytes;
    std::vector<FileDescriptor> descriptors;  // open files that came with it, in the sender's order
};

// Two ends of a connection; neither is inherited by a program that is started.
[[nodiscard]] Expected<std::pair<FileDescriptor, FileDescriptor>> connectedSockets();

// Sends `bytes`, 1 to kMostBytesOfMessage of them, and with them open files, which stay open here. Fails, without a
// signal, when nobody is at the other end. Blocks while the other end has not made room.
[[nodiscard]] Expected<void> sendMessage(int socket, MessageBytes bytes, std::span<const int> descriptors = {});

// The next message; nothing when the other end is closed. Blocks until then. A longer message than is allowed is a
// failure (EMSGSIZE), as it can only come from a decoder gone wrong.
[[nodiscard]] Expected<std::optional<SocketMessage>> receiveMessage(int socket);

}  // namespace vellomar
