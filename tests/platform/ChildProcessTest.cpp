#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/ChildProcess.h"
#include "platform/ThreadPriority.h"
#include "support/ProcessCensus.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::childrenOfThisProcess;
using testing::comesTrue;
using testing::contentOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using testing::stateOfProcess;

// A program that does not end by itself ends here all the same, should a test fail.
constexpr const char* kLongSleep = "60";

// How long a program is waited for that is about to end.
constexpr auto kLongEnough = 60s;

ProgramStart shell(const std::string& script) {
    return {.executable = "/bin/sh", .arguments = {"-c", script}, .descriptors = {}};
}

ProgramStart sleeper() {
    return {.executable = "/bin/sleep", .arguments = {kLongSleep}, .descriptors = {}};
}

FileDescriptor openForWriting(const std::string& path) {
    return FileDescriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
}

class ChildProcessTest : public ::testing::Test {
protected:
    // What `program` writes on its standard output until it ends; its other descriptors as given.
    [[nodiscard]] std::string outputOf(ProgramStart program) const {
        const auto path = folder / "output";
        const auto output = openForWriting(path);
        program.descriptors.push_back({output.get(), STDOUT_FILENO});
        auto process = ChildProcess::start(program);
        EXPECT_TRUE(process && process->waitForEnd() == 0);
        return contentOf(path);
    }

    // The id that a program writes into a file when it is ready.
    [[nodiscard]] static pid_t idIn(const std::string& path) {
        EXPECT_TRUE(comesTrue([&] { return fs::exists(path) && contentOf(path).ends_with('\n'); }));
        return std::stoi(contentOf(path));
    }

    testing::TemporaryFolder folder;
    testing::LeavesNothingBehind census;
};

TEST_F(ChildProcessTest, TellsTheExitStatus) {
    for (const int status : {0, 1, 42, 255}) {
        auto process = ChildProcess::start(shell("exit " + std::to_string(status)));
        ASSERT_TRUE(process.has_value());
        EXPECT_GT(process->id(), 0);
        EXPECT_EQ(process->waitForEnd(), status);
        EXPECT_EQ(process->waitForEnd(), status) << "asked again";
        EXPECT_TRUE(process->waitFor(0s));
    }
}

TEST_F(ChildProcessTest, AProgramThatASignalEndedHasNoExitStatus) {
    auto process = ChildProcess::start(shell("kill -KILL $$"));
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), std::nullopt);
}

TEST_F(ChildProcessTest, WhatCannotBeStartedSaysWhy) {
    const auto notExecutable = folder.write("notExecutable", "#!/bin/sh\n");
    const auto noProgram = folder.write("noProgram", "\x01\x02");
    const auto noInterpreter = folder.write("noInterpreter", "#!/missing/interpreter\n");
    fs::permissions(notExecutable, fs::perms{0644});
    fs::permissions(noProgram, fs::perms{0755});
    fs::permissions(noInterpreter, fs::perms{0755});
    const struct {
        std::string executable;
        std::string argument;
        int error;
    } cases[] = {
        {folder / "missing", "", ENOENT},
        {"", "", ENOENT},
        {"sh", "", ENOENT},
        {folder.path(), "", EACCES},
        {notExecutable, "", EACCES},
        {noProgram, "", ENOEXEC},
        {noInterpreter, "", ENOENT},
        {notExecutable + "/below", "", ENOTDIR},
        {"/bin/sh", std::string(200'000, 'x'), E2BIG},
    };
    for (const auto& [executable, argument, error] : cases) {
        SCOPED_TRACE(executable);
        const auto process = ChildProcess::start({executable, {argument}, {}});
        ASSERT_FALSE(process.has_value());
        EXPECT_TRUE(isSystemError(process.error(), error)) << process.error().code;
    }
}

TEST_F(ChildProcessTest, ArgumentsArriveByteForByte) {
    const std::vector<std::string> arguments = {"",      " ",    "-c", "--", "a b", "'\"",       "line\nbreak",
                                                "$HOME", "`id`", "*",  "a|", "\\",  "M\xC3\xBC", "\xFF\xFE",
                                                "-",     "\x01"};
    auto program = shell("printf '%s\\0' \"$@\"");
    program.arguments.emplace_back("name");
    program.arguments.insert(program.arguments.end(), arguments.begin(), arguments.end());
    std::string expected;
    for (const auto& argument : arguments)
        expected += argument + '\0';
    EXPECT_EQ(outputOf(program), expected);
}

TEST_F(ChildProcessTest, TheProgramsOwnNameIsItsPath) {
    EXPECT_THAT(outputOf({"/bin/cat", {"/proc/self/cmdline"}, {}}), StartsWith(std::string("/bin/cat\0", 9)));
}

TEST_F(ChildProcessTest, TheEnvironmentIsPassedOn) {
    ::setenv("VELLOMAR_TEST_WORD", "a b", 1);
    EXPECT_EQ(outputOf(shell("printf %s \"$VELLOMAR_TEST_WORD\"")), "a b");
    ::unsetenv("VELLOMAR_TEST_WORD");
}

TEST_F(ChildProcessTest, DescriptorsThatAreNotNamedLeadNowhere) {
    const auto ofOurs = openForWriting(folder / "ours");
    const FileDescriptor withoutCloseOnExec(::open("/dev/zero", O_RDONLY));
    const FileDescriptor farOff(::fcntl(withoutCloseOnExec.get(), F_DUPFD, 200));
    EXPECT_EQ(outputOf(shell("readlink /proc/self/fd/0 /proc/self/fd/2")), "/dev/null\n/dev/null\n");
    // 3 is the listing itself.
    EXPECT_EQ(outputOf({"/bin/ls", {"/proc/self/fd"}, {}}), "0\n1\n2\n3\n");
    EXPECT_EQ(outputOf({"/bin/ls", {"/proc/self/fd"}, {{ofOurs.get(), 100}}}), "0\n1\n100\n2\n3\n");
}

TEST_F(ChildProcessTest, WithoutAnyNamedDescriptorAllThreeLeadNowhere) {
    const auto path = folder / "seen";
    auto process =
        ChildProcess::start(shell("a=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2); echo \"$a\" >" + path));
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), 0);
    EXPECT_EQ(contentOf(path), "/dev/null\n/dev/null\n/dev/null\n");
}

TEST_F(ChildProcessTest, ANamedDescriptorGetsItsNumberAndStaysOpenHere) {
    const auto file = openForWriting(folder / "file");
    EXPECT_EQ(outputOf({"/bin/sh", {"-c", "echo there >&7"}, {{file.get(), 7}}}), "");
    EXPECT_EQ(contentOf(folder / "file"), "there\n");
    EXPECT_EQ(fcntl(file.get(), F_GETFD), FD_CLOEXEC);
}

TEST_F(ChildProcessTest, ADescriptorMayKeepItsNumber) {
    const auto file = openForWriting(folder / "file");
    const auto script = "readlink /proc/self/fd/" + std::to_string(file.get());
    EXPECT_EQ(outputOf({"/bin/sh", {"-c", script}, {{file.get(), file.get()}}}), folder / "file\n");
}

TEST_F(ChildProcessTest, DescriptorsMayTakeEachOthersNumbers) {
    const auto first = openForWriting(folder / "first");
    const auto second = openForWriting(folder / "second");
    const auto third = openForWriting(folder / "third");
    const auto at = [](const FileDescriptor& file) { return " /proc/self/fd/" + std::to_string(file.get()); };
    const auto output =
        outputOf({"/bin/sh",
                  {"-c", "readlink" + at(first) + at(second) + at(third)},
                  {{first.get(), second.get()}, {second.get(), third.get()}, {third.get(), first.get()}}});
    EXPECT_EQ(output, folder / "third\n" + folder / "first\n" + folder / "second\n");
}

TEST_F(ChildProcessTest, DescriptorsMayTakeTheNextFreeNumbers) {
    const auto first = openForWriting(folder / "first");
    const auto second = openForWriting(folder / "second");
    int lower = -1;
    int higher = -1;
    {
        const auto one = openForWriting("/dev/null");
        const auto other = openForWriting("/dev/null");
        lower = one.get();
        higher = other.get();
    }
    const auto path = [](int number) { return "/proc/self/fd/" + std::to_string(number); };
    auto process = ChildProcess::start({"/bin/sh",
                                        {"-c", "echo one >" + path(higher) + "; echo two >" + path(lower)},
                                        {{first.get(), higher}, {second.get(), lower}}});
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), 0);
    EXPECT_EQ(contentOf(folder / "first"), "one\n");
    EXPECT_EQ(contentOf(folder / "second"), "two\n");
}

TEST_F(ChildProcessTest, OneDescriptorMayHaveSeveralNumbers) {
    const auto file = openForWriting(folder / "file");
    auto process =
        ChildProcess::start({"/bin/sh", {"-c", "echo out; echo err >&2"}, {{file.get(), 1}, {file.get(), 2}}});
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), 0);
    EXPECT_EQ(contentOf(folder / "file"), "out\nerr\n");
}

TEST_F(ChildProcessTest, ADescriptorThatIsNotOpenCannotBeInherited) {
    const auto process = ChildProcess::start({"/bin/true", {}, {{-1, 1}}});
    ASSERT_FALSE(process.has_value());
    EXPECT_TRUE(isSystemError(process.error(), EBADF));
}

TEST_F(ChildProcessTest, NoSignalIsBlockedOrIgnored) {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigaddset(&blocked, SIGUSR2);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto handlerBefore = std::signal(SIGPIPE, SIG_IGN);
    const auto status = outputOf({"/bin/grep", {"^Sig[BI]", "/proc/self/status"}, {}});
    std::signal(SIGPIPE, handlerBefore);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::istringstream words(status);
    std::string blockedName;
    std::string ignoredName;
    std::uint64_t blockedSignals = 1;
    std::uint64_t ignoredSignals = 1;
    words >> blockedName >> std::hex >> blockedSignals >> ignoredName >> ignoredSignals;
    // The C library keeps signals 32 and 33 to itself, and nobody else can change them.
    constexpr std::uint64_t kOfTheLibrary = 0b11ULL << 31U;
    EXPECT_EQ(blockedName + ignoredName, "SigBlk:SigIgn:");
    EXPECT_EQ(blockedSignals & ~kOfTheLibrary, 0U) << status;
    EXPECT_EQ(ignoredSignals & ~kOfTheLibrary, 0U) << status;
}

TEST_F(ChildProcessTest, HasThePriorityOfTheThreadThatStartedIt) {
    std::string niceness;
    int ofThread = 0;
    std::jthread([&] {
        lowerPriorityOfThisThread();
        ofThread = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        niceness = outputOf({"/usr/bin/nice", {}, {}});
    }).join();
    EXPECT_EQ(niceness, std::to_string(ofThread) + "\n");
}

TEST_F(ChildProcessTest, WaitsNoLongerThanItIsTold) {
    auto process = ChildProcess::start(sleeper());
    ASSERT_TRUE(process.has_value());
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(process->waitFor(50ms));
    EXPECT_GE(std::chrono::steady_clock::now() - before, 50ms);
    EXPECT_FALSE(process->waitFor(0ms));
    EXPECT_FALSE(process->waitFor(-1s));
    EXPECT_LT(std::chrono::steady_clock::now() - before, 30s);
    process->send(SIGKILL);
    EXPECT_TRUE(process->waitFor(kLongEnough));
}

TEST_F(ChildProcessTest, TheLongestLimitIsNoneTooLong) {
    auto process = ChildProcess::start(shell("sleep 0.05"));
    ASSERT_TRUE(process.has_value());
    EXPECT_TRUE(process->waitFor(std::chrono::milliseconds::max()));
}

TEST_F(ChildProcessTest, ASignalToThisProcessDoesNotEndTheWaiting) {
    struct sigaction interrupting {};
    struct sigaction before {};
    interrupting.sa_handler = [](int) {};  // without SA_RESTART, so that calls of the kernel break off
    sigaction(SIGUSR1, &interrupting, &before);
    auto process = ChildProcess::start(shell("sleep 0.3; exit 7"));
    ASSERT_TRUE(process.has_value());
    std::atomic<bool> hasEnded = false;
    std::jthread pest([&hasEnded, waiting = pthread_self()] {
        while (!hasEnded) {
            pthread_kill(waiting, SIGUSR1);
            std::this_thread::sleep_for(5ms);
        }
    });
    EXPECT_FALSE(process->waitFor(100ms));
    EXPECT_EQ(process->waitForEnd(), 7);
    hasEnded = true;
    pest.join();
    sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(ChildProcessTest, LeadsAGroupOfItsOwn) {
    auto process = ChildProcess::start(sleeper());
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(getpgid(process->id()), process->id());
    process->send(SIGKILL);
    EXPECT_TRUE(process->waitFor(kLongEnough));
}

TEST_F(ChildProcessTest, ASignalReachesWhatTheProgramStarted) {
    const auto path = folder / "grandchild";
    auto process = ChildProcess::start(shell("sleep 60 & echo $! >" + path + "; wait"));
    ASSERT_TRUE(process.has_value());
    const auto grandchild = idIn(path);
    process->send(SIGTERM);
    EXPECT_EQ(process->waitForEnd(), std::nullopt);
    EXPECT_TRUE(comesTrue([&] { return stateOfProcess(grandchild).value_or('Z') == 'Z'; }));
}

TEST_F(ChildProcessTest, NoSignalIsSentOnceTheProgramHasEnded) {
    const auto path = folder / "grandchild";
    auto process = ChildProcess::start(shell("sleep 60 & echo $! >" + path));
    ASSERT_TRUE(process.has_value());
    const auto grandchild = idIn(path);
    // Ended, though nobody has waited for it yet.
    ASSERT_TRUE(comesTrue([&] { return stateOfProcess(process->id()) == 'Z'; }));
    process->send(SIGKILL);
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(stateOfProcess(grandchild), 'S');
    ASSERT_EQ(::kill(grandchild, SIGKILL), 0);
}

TEST_F(ChildProcessTest, WhatIsDroppedGoesOnAndIsNoZombieInTheEnd) {
    pid_t id = -1;
    {
        const auto process = ChildProcess::start(sleeper());
        ASSERT_TRUE(process.has_value());
        id = process->id();
    }
    EXPECT_THAT(childrenOfThisProcess().running, ElementsAre(id));
    ASSERT_EQ(::kill(id, SIGKILL), 0);
    EXPECT_TRUE(comesTrue([] { return childrenOfThisProcess().zombies.empty(); }));
}

TEST_F(ChildProcessTest, WhatHasEndedBeforeItIsDroppedIsNoZombie) {
    {
        const auto process = ChildProcess::start({"/bin/true", {}, {}});
        ASSERT_TRUE(process.has_value());
        ASSERT_TRUE(comesTrue([&] { return stateOfProcess(process->id()) == 'Z'; }));
    }
    EXPECT_THAT(childrenOfThisProcess().zombies, IsEmpty());
}

TEST_F(ChildProcessTest, CanBeMoved) {
    auto process = ChildProcess::start(shell("exit 3"));
    ASSERT_TRUE(process.has_value());
    const auto id = process->id();
    auto moved = std::move(*process);
    EXPECT_EQ(moved.id(), id);
    EXPECT_EQ(moved.waitForEnd(), 3);
    const auto movedAfterwards = std::move(moved);
    EXPECT_EQ(movedAfterwards.id(), id);
}

// For as long as it lives this process can open no further descriptor, while a child has a few to spare.
class NoMoreDescriptors {
public:
    NoMoreDescriptors() {
        getrlimit(RLIMIT_NOFILE, &before_);
        for (int i = 0; i < kSpareInChild; ++i)
            spare_.push_back(openForWriting("/dev/null"));
        auto limit = before_;
        limit.rlim_cur = static_cast<rlim_t>(spare_.back().get()) + 1;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~NoMoreDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoMoreDescriptors(const NoMoreDescriptors&) = delete;
    NoMoreDescriptors& operator=(const NoMoreDescriptors&) = delete;

private:
    static constexpr int kSpareInChild = 10;

    std::vector<FileDescriptor> spare_;
    rlimit before_{};
};

TEST_F(ChildProcessTest, WaitsEvenWhenNotOneDescriptorIsLeft) {
    const NoMoreDescriptors narrow;
    ASSERT_FALSE(openForWriting("/dev/null").isOpen());
    auto process = ChildProcess::start(shell("sleep 0.1; exit 5"));
    ASSERT_TRUE(process.has_value());
    EXPECT_FALSE(process->waitFor(1ms));
    EXPECT_EQ(process->waitForEnd(), 5);
}

TEST_F(ChildProcessTest, FailsWhenDescriptorsCannotBePassedOn) {
    const auto process = [] {
        const NoMoreDescriptors narrow;  // ends before the test library, under a sanitizer, wants some of its own
        return ChildProcess::start({"/bin/true", {}, {{STDOUT_FILENO, STDOUT_FILENO}}});
    }();
    ASSERT_FALSE(process.has_value());
    EXPECT_THAT((std::vector{EMFILE, EINVAL}), ::testing::Contains(process.error().code));
}

TEST_F(ChildProcessTest, TheEndOfAProgramThatNobodyMayWaitForIsStillSeen) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);  // the kernel then forgets ended children at once
    auto process = ChildProcess::start(shell("exit 0"));
    ASSERT_TRUE(process.has_value());
    EXPECT_EQ(process->waitForEnd(), std::nullopt);
    std::signal(SIGCHLD, before);
}

}  // namespace
}  // namespace vellomar
