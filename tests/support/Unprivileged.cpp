#include "support/Unprivileged.h"

#include <array>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellomar::testing {
namespace {

constexpr uid_t kNobody = 65'534;

[[noreturn]] void workInChild(const std::function<std::string()>& work, int results) {
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(EXIT_FAILURE);
    const auto result = work();
    const bool isWritten = write(results, result.data(), result.size()) == static_cast<ssize_t>(result.size());
    _exit(isWritten ? EXIT_SUCCESS : EXIT_FAILURE);
}

std::string readAll(int pipeEnd) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = read(pipeEnd, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
}

}  // namespace

std::string resultAsUnprivileged(const std::function<std::string()>& work) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const auto child = fork();
    EXPECT_GE(child, 0);
    if (child == 0) workInChild(work, ends[1]);
    close(ends[1]);
    auto result = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the work's own process failed";
    return result;
}

}  // namespace vellomar::testing
