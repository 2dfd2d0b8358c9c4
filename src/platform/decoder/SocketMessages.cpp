#include "platform/decoder/SocketMessages.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>

#include "platform/Uninterrupted.h"

namespace vellomar {
namespace {

// Room for the descriptors beside a message, aligned as the kernel wants it.
struct alignas(cmsghdr) DescriptorRoom {
    std::array<char, CMSG_SPACE(kMostDescriptorsOfMessage * sizeof(int))> bytes{};
};

void attach(msghdr& header, DescriptorRoom& room, std::span<const int> descriptors) {
    header.msg_control = room.bytes.data();
    header.msg_controllen = CMSG_SPACE(descriptors.size_bytes());
    auto* control = CMSG_FIRSTHDR(&header);
    control->cmsg_level = SOL_SOCKET;
    control->cmsg_type = SCM_RIGHTS;
    control->cmsg_len = CMSG_LEN(descriptors.size_bytes());
    std::memcpy(CMSG_DATA(control), descriptors.data(), descriptors.size_bytes());
}

std::vector<FileDescriptor> attachedTo(msghdr& header) {
    std::vector<FileDescriptor> descriptors;
    const auto* control = CMSG_FIRSTHDR(&header);
    if (control == nullptr || control->cmsg_type != SCM_RIGHTS) return descriptors;
    for (auto position = CMSG_LEN(0); position + sizeof(int) <= control->cmsg_len; position += sizeof(int)) {
        int descriptor = -1;
        std::memcpy(&descriptor, CMSG_DATA(control) + (position - CMSG_LEN(0)), sizeof descriptor);
        descriptors.emplace_back(descriptor);
    }
    return descriptors;
}

}  // namespace

Expected<std::pair<FileDescriptor, FileDescriptor>> connectedSockets() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) return systemFailure(errno);
    return std::pair(FileDescriptor(ends[0]), FileDescriptor(ends[1]));
}

Expected<void> sendMessage(int socket, MessageBytes bytes, std::span<const int> descriptors) {
    iovec content{bytes.data(), bytes.size()};
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    DescriptorRoom room;
    if (!descriptors.empty()) attach(header, room, descriptors);
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
    auto descriptors = attachedTo(header);
    if (length == 0) return std::nullopt;
    if ((header.msg_flags & MSG_TRUNC) != 0) return systemFailure(EMSGSIZE);
    message.bytes.resize(static_cast<std::size_t>(length));
    return SocketMessage{std::move(message.bytes), std::move(descriptors)};
}

}  // namespace vellomar
