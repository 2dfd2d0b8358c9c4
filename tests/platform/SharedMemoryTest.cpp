#include <cerrno>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/SharedMemory.h"

namespace vellomar {
namespace {

void write(const SharedMemory& memory, const std::string& text) {
    ASSERT_EQ(::write(memory.descriptor(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

std::string contentOf(SharedMemory& memory) {
    const auto content = memory.content().value();
    return {reinterpret_cast<const char*>(content.data()), content.size()};
}

TEST(SharedMemory, HoldsWhatIsWrittenToItsDescriptor) {
    auto memory = SharedMemory::create().value();
    EXPECT_EQ(contentOf(memory), "");
    write(memory, "one");
    EXPECT_EQ(contentOf(memory), "one");
    write(memory, ", two");
    EXPECT_EQ(contentOf(memory), "one, two");
}

TEST(SharedMemory, NeverShrinks) {
    auto memory = SharedMemory::create().value();
    write(memory, "text");
    EXPECT_EQ(::ftruncate(memory.descriptor(), 1), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(contentOf(memory), "text");
}

TEST(SharedMemory, StaysReadableWhereItIsMovedTo) {
    auto first = SharedMemory::create().value();
    write(first, "text");
    const auto content = first.content().value();
    auto second = std::move(first);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(content.data()), content.size()), "text");
    EXPECT_EQ(contentOf(second), "text");
}

}  // namespace
}  // namespace vellomar
