#include <algorithm>
#include <thread>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/ThreadPriority.h"

namespace vellomar {
namespace {

int nicenessOfThisThread() {
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
}

TEST(ThreadPriority, OneThreadStepsBackAndTheOthersStay) {
    const int before = nicenessOfThisThread();
    int lowered = 0;
    std::jthread([&] {
        lowerPriorityOfThisThread();
        lowered = nicenessOfThisThread();
    }).join();
    EXPECT_EQ(lowered, std::max(before, 10));
    EXPECT_EQ(nicenessOfThisThread(), before);
}

TEST(ThreadPriority, AThreadThatIsLowerAlreadyIsNotRaised) {
    constexpr int kLowest = 19;
    int niceness = 0;
    std::jthread([&] {
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kLowest);
        lowerPriorityOfThisThread();
        niceness = nicenessOfThisThread();
    }).join();
    EXPECT_EQ(niceness, kLowest);
}

}  // namespace
}  // namespace vellomar
