#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/decoder/worker/Confinement.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

constexpr std::size_t kMostMemory = std::size_t{1} << 30U;

constexpr int kNotConfined = 200;

// Does `attempt` in a confined process and returns what it returned there: an errno, or 0 for success.
int confined(const std::function<int()>& attempt) {
    const auto child = ::fork();
    if (child == 0) _exit(limitResources(kMostMemory) && confine() ? attempt() : kNotConfined);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int errnoUnless(bool succeeded) {
    return succeeded ? 0 : errno;
}

struct Attempt {
    const char* name;
    std::function<int()> call;
};

TEST(Confinement, WhatADecoderHasNoBusinessWithIsRefused) {
    const testing::TemporaryFolder folder;
    const auto file = folder.write("file");
    const auto other = folder / "other";
    const auto parent = ::getpid();
    const std::array attempts = {
        Attempt{"open", [&] { return errnoUnless(::open(file.c_str(), O_RDONLY) >= 0); }},
        Attempt{"create", [&] { return errnoUnless(::open(other.c_str(), O_WRONLY | O_CREAT, S_IRWXU) >= 0); }},
        Attempt{"remove", [&] { return errnoUnless(::unlink(file.c_str()) == 0); }},
        Attempt{"rename", [&] { return errnoUnless(::rename(file.c_str(), other.c_str()) == 0); }},
        Attempt{"make a folder", [&] { return errnoUnless(::mkdir(other.c_str(), S_IRWXU) == 0); }},
        Attempt{"change the mode", [&] { return errnoUnless(::chmod(file.c_str(), S_IRWXU) == 0); }},
        Attempt{"truncate", [&] { return errnoUnless(::truncate(file.c_str(), 0) == 0); }},
        Attempt{"network", [] { return errnoUnless(::socket(AF_INET, SOCK_STREAM, 0) >= 0); }},
        Attempt{"local socket", [] { return errnoUnless(::socket(AF_UNIX, SOCK_STREAM, 0) >= 0); }},
        Attempt{"program", [] { return errnoUnless(::execl("/bin/true", "true", nullptr) == 0); }},
        Attempt{"process", [] { return errnoUnless(::fork() >= 0); }},
        Attempt{"signal", [&] { return errnoUnless(::kill(parent, 0) == 0); }},
        // By its number: the C library's function wants all threads to agree, and ends the process when they do not.
        Attempt{"become root", [] { return errnoUnless(::syscall(SYS_setuid, 0) == 0); }},
    };
    for (const auto& attempt : attempts)
        EXPECT_EQ(confined(attempt.call), EPERM) << attempt.name;
    EXPECT_EQ(testing::contentOf(file), "content");
}

TEST(Confinement, WhatIsOpenCanBeReadAndAnswered) {
    const testing::TemporaryFolder folder;
    const int file = ::open(folder.write("file").c_str(), O_RDONLY | O_CLOEXEC);
    const auto readAndMap = [file] {
        struct stat status {};
        std::array<char, 4> bytes{};
        return errnoUnless(::fstat(file, &status) == 0 && ::read(file, bytes.data(), bytes.size()) == 4 &&
                           status.st_size == 7);
    };
    EXPECT_EQ(confined(readAndMap), 0);
    ::close(file);
}

TEST(Confinement, MemoryAndFilesAreLimited) {
    const auto limits = [] {
        rlimit core{};
        rlimit files{};
        ::getrlimit(RLIMIT_CORE, &core);
        ::getrlimit(RLIMIT_NOFILE, &files);
        return core.rlim_max == 0 && files.rlim_max == 64 ? 0 : 1;
    };
    const auto child = ::fork();
    if (child == 0) _exit(limitResources(kMostMemory) ? limits() : kNotConfined);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace vellomar
