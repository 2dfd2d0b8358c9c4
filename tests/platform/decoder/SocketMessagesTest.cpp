#include <array>
#include <cerrno>
#include <string>
#include <vector>

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

std::vector<std::string> contentsOf(const std::vector<FileDescriptor>& files) {
    std::vector<std::string> contents;
    for (const auto& file : files) {
        std::array<char, 8> content{};
        const auto length = ::pread(file.get(), content.data(), content.size(), 0);
        contents.emplace_back(content.data(), static_cast<std::size_t>(length));
    }
    return contents;
}

TEST_F(SocketMessages, MessagesComeOneByOneInTheirOrder) {
    const MessageBytes whole(kMostBytesOfMessage, 7);
    ASSERT_TRUE(sendMessage(here, {1, 2, 3}));
    ASSERT_TRUE(sendMessage(here, whole));
    EXPECT_EQ(receiveMessage(there).value()->bytes, (MessageBytes{1, 2, 3}));
    EXPECT_EQ(receiveMessage(there).value()->bytes, whole);
}

TEST_F(SocketMessages, OpenFilesTravelWithAMessageInTheirOrder) {
    const testing::TemporaryFolder folder;
    const FileDescriptor first(::open(folder.write("a", "one").c_str(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor second(::open(folder.write("b", "two").c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_TRUE(sendMessage(here, {1}, std::array{first.get()}));
    ASSERT_TRUE(sendMessage(here, {2}, std::array{second.get(), first.get()}));
    EXPECT_EQ(contentsOf(receiveMessage(there).value()->descriptors), (std::vector<std::string>{"one"}));
    EXPECT_EQ(contentsOf(receiveMessage(there).value()->descriptors), (std::vector<std::string>{"two", "one"}));
}

TEST_F(SocketMessages, AFileThatTravelledIsNotInheritedByPrograms) {
    const FileDescriptor file(::open("/dev/null", O_RDONLY));
    ASSERT_TRUE(sendMessage(here, {1}, std::array{file.get()}));
    const auto message = receiveMessage(there).value();
    ASSERT_EQ(message->descriptors.size(), 1U);
    EXPECT_NE(message->descriptors[0].get(), file.get());
    EXPECT_NE(::fcntl(message->descriptors[0].get(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(SocketMessages, AMessageWithoutAFileBringsNone) {
    ASSERT_TRUE(sendMessage(here, {1}));
    EXPECT_TRUE(receiveMessage(there).value()->descriptors.empty());
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
