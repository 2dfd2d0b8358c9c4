#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace vellomar::testing {

// Descriptors that this process has open.
[[nodiscard]] std::size_t countOpenDescriptors();

// What a test looks for that starts programs: whether any is left behind.
struct Children {
    std::vector<pid_t> running;
    std::vector<pid_t> zombies;  // ended, and nobody has asked how
};

// The children of this process.
[[nodiscard]] Children childrenOfThisProcess();

// The state that the kernel gives a process ('R', 'S', 'Z' and so on); nothing when there is none of that id.
[[nodiscard]] std::optional<char> stateOfProcess(pid_t id);

// Waits for what another process or thread is about to do, longer than any machine needs. Whether it came true.
[[nodiscard]] bool comesTrue(const std::function<bool()>& condition);

// No child and no descriptor more than before. Made before what is tested; fails the test at the end of the scope.
class LeavesNothingBehind {
public:
    LeavesNothingBehind();
    ~LeavesNothingBehind();
    LeavesNothingBehind(const LeavesNothingBehind&) = delete;
    LeavesNothingBehind& operator=(const LeavesNothingBehind&) = delete;

private:
    std::size_t descriptorsBefore_;
};

}  // namespace vellomar::testing
