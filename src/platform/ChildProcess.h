#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "platform/Error.h"
#include "platform/FileDescriptor.h"

namespace vellomar {

// A descriptor that a child is to have, and its number there.
struct InheritedDescriptor {
    int descriptor = -1;  // stays open here
    int numberInChild = -1;
};

struct ProgramStart {
    std::string executable;              // absolute path; $PATH is not searched
    std::vector<std::string> arguments;  // raw bytes without NUL, without the program's own name
    // Whatever else is open here stays here. Of the standard three, those not named lead to /dev/null.
    std::vector<InheritedDescriptor> descriptors;
};

// A program that runs beside this one, as the leader of a process group of its own: what is typed at a terminal does
// not reach it, and a signal from here reaches it together with the programs that it started. It has this process's
// environment, no signal blocked or ignored, and the priority of the thread that started it.
//
// One thread at a time; none of the calls throws.
class ChildProcess {
public:
    // Fails if the program cannot be started, or not with these arguments.
    [[nodiscard]] static Expected<ChildProcess> start(const ProgramStart& program);

    // A process that still runs is left to itself. It never becomes a zombie: a thread waits for its end.
    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t id() const { return id_; }

    // Waits until the process has ended, no longer than `limit`; zero or less only looks. Whether it has ended.
    [[nodiscard]] bool waitFor(std::chrono::milliseconds limit);

    // Waits until the process has ended, however long it takes. Its exit status; nothing if a signal ended it.
    [[nodiscard]] std::optional<int> waitForEnd();

    // To the process and its group. Does nothing once the process has ended: its id may be another's by then.
    void send(int signal);

private:
    ChildProcess(pid_t id, FileDescriptor end) : id_(id), end_(std::move(end)) {}
    [[nodiscard]] bool hasEnded();
    void waitForChange(std::chrono::milliseconds limit) const;

    pid_t id_;
    FileDescriptor end_;             // readable when the process has ended; not open where none was to be had
    bool isReaped_ = false;          // its end was seen, and its id is free for another process; or moved from
    std::optional<int> exitStatus_;  // of a process that ended by itself
};

}  // namespace vellomar
