#include <array>
#include <cerrno>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/decoder/SocketMessages.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

class SocketMessages : public ::testing::Test {
protected:
    testing::LeavesNothingBehind census;
    std::pair<FileDescriptor, FileDescriptor> ends = connectedSockets().value();
    int here = ends.first.get();
    int there = ends.second.get();
};

TEST_F(SocketMessages, MessagesComeOneByOneInTheirOrder) {
    const MessageBytes whole(kMostBytesOfMessage, 7);
    ASSERT_TRUE(sendMessage(here, {1, 2, 3}));
    ASSERT_TRUE(sendMessage(here, whole));
    EXPECT_EQ(receiveMessage(there).value()->bytes, (MessageBytes{1, 2, 3}));
    EXPECT_EQ(receiveMessage(there).value()->bytes, whole);
}

TEST_F(SocketMessages, AnOpenFileTravelsWithAMessage) {
    const testing::TemporaryFolder folder;
    const FileDescriptor file(::open(folder.write("a", "text").c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_TRUE(sendMessage(here, {1}, file.get()));
    const auto message = receiveMessage(there).value();
    ASSERT_TRUE(message->descriptor.isOpen());
    EXPECT_NE(message->descriptor.get(), file.get());
    EXPECT_NE(::fcntl(message->descriptor.get(), F_GETFD) & FD_CLOEXEC, 0);
    std::array<char, 8> content{};
    EXPECT_EQ(::read(message->descriptor.get(), content.data(), content.size()), 4);
    EXPECT_STREQ(content.data(), "text");
}

TEST_F(SocketMessages, AMessageWithoutAFileBringsNone) {
    ASSERT_TRUE(sendMessage(here, {1}));
    EXPECT_FALSE(receiveMessage(there).value()->descriptor.isOpen());
}

TEST_F(SocketMessages, TheOtherEndsCloseIsTheEnd) {
    { const auto closed = std::move(ends.first); }
    EXPECT_FALSE(receiveMessage(there).value().has_value());
    const auto sent = sendMessage(there, {1});  // and no SIGPIPE
    ASSERT_FALSE(sent.has_value());
    EXPECT_TRUE(isSystemError(sent.error(), EPIPE));
}

TEST_F(SocketMessages, AMessageThatIsTooLongIsAFailure) {
    const MessageBytes tooLong(kMostBytesOfMessage + 1);
    ASSERT_EQ(::send(here, tooLong.data(), tooLong.size(), 0), static_cast<ssize_t>(tooLong.size()));
    const auto received = receiveMessage(there);
    ASSERT_FALSE(received.has_value());
    EXPECT_TRUE(isSystemError(received.error(), EMSGSIZE));
}

TEST_F(SocketMessages, NeitherEndIsInherited) {
    for (const int end : {here, there})
        EXPECT_NE(::fcntl(end, F_GETFD) & FD_CLOEXEC, 0);
}

}  // namespace
}  // namespace vellomar
