#include <fstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/WidePipe.h"
#include "support/ProcessCensus.h"
#include "support/ScopedOrdinaryUser.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

int capacityOf(const Pipe& pipe) {
    return fcntl(pipe.writeEnd.get(), F_GETPIPE_SZ);
}

int mostThatTheSystemGives() {
    int bytes = 0;
    std::ifstream("/proc/sys/fs/pipe-max-size") >> bytes;
    return bytes;
}

bool writes(const Pipe& pipe, const std::string& bytes) {
    return ::write(pipe.writeEnd.get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

TEST(WidePipe, HoldsAWholeMebibyteBeforeAnybodyReads) {
    const auto pipe = makeWidePipe();
    ASSERT_TRUE(pipe.has_value());
    ASSERT_GE(capacityOf(*pipe), 1 << 20);
    const std::string bytes(std::size_t{1} << 20, 'x');
    ASSERT_TRUE(writes(*pipe, bytes));
    EXPECT_EQ(readWhatIsThere(pipe->readEnd), bytes);
}

TEST(WidePipe, WhatIsRefusedIsHalvedUntilItIsGranted) {
    const testing::TemporaryFolder folder;
    const testing::ScopedOrdinaryUser user(folder.path());
    const int most = mostThatTheSystemGives();
    const auto pipe = makeWidePipe(most * 8);
    ASSERT_TRUE(pipe.has_value());
    EXPECT_EQ(capacityOf(*pipe), most);
}

TEST(WidePipe, IsNeverMadeNarrowerThanItWas) {
    const auto usual = makeWidePipe(0);
    const auto pipe = makeWidePipe(4096);
    ASSERT_TRUE(usual.has_value());
    ASSERT_TRUE(pipe.has_value());
    EXPECT_EQ(capacityOf(*pipe), capacityOf(*usual));
    EXPECT_GT(capacityOf(*pipe), 4096);
}

TEST(WidePipe, NeitherEndReachesAnotherProgram) {
    const auto pipe = makeWidePipe();
    ASSERT_TRUE(pipe.has_value());
    EXPECT_EQ(fcntl(pipe->readEnd.get(), F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(fcntl(pipe->writeEnd.get(), F_GETFD), FD_CLOEXEC);
}

TEST(WidePipe, OnlyReadingNeverWaits) {
    const auto pipe = makeWidePipe();
    ASSERT_TRUE(pipe.has_value());
    EXPECT_EQ(fcntl(pipe->readEnd.get(), F_GETFL) & O_NONBLOCK, O_NONBLOCK);
    EXPECT_EQ(fcntl(pipe->writeEnd.get(), F_GETFL) & O_NONBLOCK, 0);
}

TEST(WidePipe, ReadsAsFarAsTheWritersHaveGot) {
    auto pipe = makeWidePipe();
    ASSERT_TRUE(pipe.has_value());
    EXPECT_EQ(readWhatIsThere(pipe->readEnd), "");
    ASSERT_TRUE(writes(*pipe, "some"));
    EXPECT_EQ(readWhatIsThere(pipe->readEnd), "some");
    ASSERT_TRUE(writes(*pipe, "more"));
    { const FileDescriptor closed = std::move(pipe->writeEnd); }
    EXPECT_EQ(readWhatIsThere(pipe->readEnd), "more");
    EXPECT_EQ(readWhatIsThere(pipe->readEnd), "");
}

TEST(WidePipe, BothEndsCloseWithIt) {
    const auto before = testing::countOpenDescriptors();
    {
        const auto pipe = makeWidePipe();
        EXPECT_EQ(testing::countOpenDescriptors(), before + 2);
    }
    EXPECT_EQ(testing::countOpenDescriptors(), before);
}

}  // namespace
}  // namespace vellomar
