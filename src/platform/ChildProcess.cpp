#include "platform/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <limits>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellomar {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How often a process is looked at that cannot be waited for.
constexpr milliseconds kLookEvery{10};

// Far beyond what any program takes, and near enough for the clock's arithmetic.
constexpr milliseconds kForever = std::chrono::hours(24 * 365);

// Standard input, output and error are numbered up to this.
constexpr int kLastStandardNumber = STDERR_FILENO;

class SpawnAttributes {
public:
    SpawnAttributes() {
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals;
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        ::posix_spawnattr_setpgroup(&attributes_, 0);
        ::posix_spawnattr_setflags(&attributes_,
                                   POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

// What the child does with descriptors before the program begins. The first failure is kept; nothing is added behind.
class SpawnActions {
public:
    SpawnActions() { ::posix_spawn_file_actions_init(&actions_); }
    ~SpawnActions() { ::posix_spawn_file_actions_destroy(&actions_); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    void duplicate(int descriptor, int numberInChild) {
        if (failure_ == 0) failure_ = ::posix_spawn_file_actions_adddup2(&actions_, descriptor, numberInChild);
    }
    void openNothing(int numberInChild) {
        if (failure_ == 0)
            failure_ = ::posix_spawn_file_actions_addopen(&actions_, numberInChild, "/dev/null", O_RDWR, 0);
    }

    void close(int numberInChild) {
        if (failure_ == 0) failure_ = ::posix_spawn_file_actions_addclose(&actions_, numberInChild);
    }
    void closeFrom(int numberInChild) {
        if (failure_ == 0) failure_ = ::posix_spawn_file_actions_addclosefrom_np(&actions_, numberInChild);
    }

    [[nodiscard]] int failure() const { return failure_; }
    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
    int failure_ = 0;
};

bool isNamed(const std::vector<InheritedDescriptor>& descriptors, int numberInChild) {
    return std::ranges::find(descriptors, numberInChild, &InheritedDescriptor::numberInChild) != descriptors.end();
}

// The highest number that the child is to have open.
int highestNumber(const std::vector<InheritedDescriptor>& descriptors) {
    int highest = kLastStandardNumber;
    for (const auto& inherited : descriptors)
        highest = std::max(highest, inherited.numberInChild);
    return highest;
}

// Copies of the descriptors, numbered above all that the child is to have. Whatever the order of the actions then, none
// overwrites the source of another, and none is from a number to itself, which would leave it to be closed.
Expected<std::vector<FileDescriptor>> liftedAbove(const std::vector<InheritedDescriptor>& descriptors) {
    const int firstAbove = highestNumber(descriptors) + 1;
    std::vector<FileDescriptor> lifted;
    lifted.reserve(descriptors.size());
    for (const auto& inherited : descriptors) {
        lifted.emplace_back(::fcntl(inherited.descriptor, F_DUPFD_CLOEXEC, firstAbove));
        if (!lifted.back().isOpen()) return systemFailure(errno);
    }
    return lifted;
}

// `sources` are those of `descriptors`, lifted. What this program opens closes by itself when another begins; what was
// open when it began itself is closed here.
void arrange(const std::vector<FileDescriptor>& sources, const std::vector<InheritedDescriptor>& descriptors,
             SpawnActions& actions) {
    for (std::size_t i = 0; i < sources.size(); ++i)
        actions.duplicate(sources[i].get(), descriptors[i].numberInChild);
    const int highest = highestNumber(descriptors);
    for (int number = 0; number <= highest; ++number) {
        if (isNamed(descriptors, number)) continue;
        if (number <= kLastStandardNumber)
            actions.openNothing(number);
        else
            actions.close(number);
    }
    actions.closeFrom(highest + 1);
}

std::vector<char*> argumentPointers(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

Expected<pid_t> spawn(const ProgramStart& program) {
    const auto sources = liftedAbove(program.descriptors);
    if (!sources) return tl::unexpected(sources.error());
    SpawnActions actions;
    arrange(*sources, program.descriptors, actions);
    if (actions.failure() != 0) return systemFailure(actions.failure());

    std::vector<std::string> words = {program.executable};
    words.insert(words.end(), program.arguments.begin(), program.arguments.end());
    const auto arguments = argumentPointers(words);
    const SpawnAttributes attributes;
    pid_t id = -1;
    const int failure =
        ::posix_spawn(&id, program.executable.c_str(), actions.get(), attributes.get(), arguments.data(), environ);
    if (failure != 0) return systemFailure(failure);
    return id;
}

// Becomes readable when the process ends. By its number, because the C library's header of the call does not go
// together with <sys/wait.h> everywhere.
FileDescriptor openProcess(pid_t id) {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, id, 0)));
}

// What waitpid() returned, made again when a signal of our own interrupted it.
pid_t waitForProcess(pid_t id, int& status, int options) {
    while (true) {
        const auto result = ::waitpid(id, &status, options);
        if (result >= 0 || errno != EINTR) return result;
    }
}

void reapInBackground(pid_t id) noexcept {
    try {
        std::thread([id] {
            int ignored = 0;
            waitForProcess(id, ignored, 0);
        }).detach();
    } catch (const std::system_error&) {
        // Not one more thread is to be had. The zombie goes with this process.
    }
}

}  // namespace

Expected<ChildProcess> ChildProcess::start(const ProgramStart& program) {
    const auto id = spawn(program);
    if (!id) return tl::unexpected(id.error());
    return ChildProcess(*id, openProcess(*id));
}

ChildProcess::~ChildProcess() {
    if (!hasEnded()) reapInBackground(id_);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : id_(other.id_),
      end_(std::move(other.end_)),
      isReaped_(std::exchange(other.isReaped_, true)),
      exitStatus_(other.exitStatus_) {}

bool ChildProcess::waitFor(milliseconds limit) {
    const auto deadline = steady_clock::now() + std::min(limit, kForever);
    while (!hasEnded()) {
        const auto remaining = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
        if (remaining <= milliseconds::zero()) return false;
        waitForChange(remaining);
    }
    return true;
}

std::optional<int> ChildProcess::waitForEnd() {
    while (!waitFor(kForever)) {
    }
    return exitStatus_;
}

void ChildProcess::send(int signal) {
    if (!hasEnded()) ::kill(-id_, signal);
}

bool ChildProcess::hasEnded() {
    if (isReaped_) return true;
    int status = 0;
    const auto result = waitForProcess(id_, status, WNOHANG);
    if (result == 0) return false;
    // A failure means that somebody else has taken its end, and its status with it.
    isReaped_ = true;
    if (result == id_ && WIFEXITED(status)) exitStatus_ = WEXITSTATUS(status);
    return true;
}

// Returns early when the process may have ended, or for no reason.
void ChildProcess::waitForChange(milliseconds limit) const {
    if (!end_.isOpen()) {
        std::this_thread::sleep_for(std::min(limit, kLookEvery));
        return;
    }
    pollfd end{.fd = end_.get(), .events = POLLIN, .revents = 0};
    const auto longest = std::min<milliseconds::rep>(limit.count(), std::numeric_limits<int>::max());
    ::poll(&end, 1, static_cast<int>(longest));
}

}  // namespace vellomar
