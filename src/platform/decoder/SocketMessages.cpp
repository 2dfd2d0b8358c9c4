#include "platform/decoder/SocketMessages.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>

namespace vellomar {
namespace {

// Room for one descriptor beside a message, aligned as the kernel wants it.
struct alignas(cmsghdr) DescriptorRoom {
    std::array<char, CMSG_SPACE(sizeof(int))> bytes{};
};

void attach(msghdr& header, DescriptorRoom& room, int descriptor) {
    header.msg_control = room.bytes.data();
    header.msg_controllen = room.bytes.size();
    auto* control = CMSG_FIRSTHDR(&header);
    control->cmsg_level = SOL_SOCKET;
    control->cmsg_type = SCM_RIGHTS;
    control->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(control), &descriptor, sizeof descriptor);
}

FileDescriptor attachedTo(msghdr& header) {
    const auto* control = CMSG_FIRSTHDR(&header);
    if (control == nullptr || control->cmsg_type != SCM_RIGHTS) return FileDescriptor(-1);
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(control), sizeof descriptor);
    return FileDescriptor(descriptor);
}

template <typename Call>
auto uninterrupted(Call call) {
    while (true) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

}  // namespace

Expected<std::pair<FileDescriptor, FileDescriptor>> connectedSockets() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) return systemFailure(errno);
    return std::pair(FileDescriptor(ends[0]), FileDescriptor(ends[1]));
}

Expected<void> sendMessage(int socket, MessageBytes bytes, int descriptor) {
    iovec content{bytes.data(), bytes.size()};
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    DescriptorRoom room;
    if (descriptor >= 0) attach(header, room, descriptor);
    if (uninterrupted([&] { return ::sendmsg(socket, &header, MSG_NOSIGNAL); }) < 0) return systemFailure(errno);
    return {};
}

Expected<std::optional<SocketMessage>> receiveMessage(int socket) {
    SocketMessage message;
    message.bytes.resize(kMostBytesOfMessage);
    iovec content{message.bytes.data(), message.bytes.size()};
    DescriptorRoom room;
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    header.msg_control = room.bytes.data();
    header.msg_controllen = room.bytes.size();
    const auto length = uninterrupted([&] { return ::recvmsg(socket, &header, MSG_CMSG_CLOEXEC); });
    if (length < 0) return systemFailure(errno);
    auto descriptor = attachedTo(header);
    if (length == 0) return std::nullopt;
    if ((header.msg_flags & MSG_TRUNC) != 0) return systemFailure(EMSGSIZE);
    message.bytes.resize(static_cast<std::size_t>(length));
    return SocketMessage{std::move(message.bytes), std::move(descriptor)};
}

}  // namespace vellomar
