#include "platform/decoder/DecoderProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kMostForStart = 10s;
constexpr auto kMostWithoutLooking = 800ms;
constexpr auto kBetweenLooks = 50ms;
constexpr int kMostIdleLooks = 3;  // in a row, as threads that hand over to each other may all seem idle
constexpr auto kMostForDying = 100ms;
constexpr int kMostFailedStarts = 3;

// Whether a message, or the end of the other side, can be received by then.
bool hasNewsBy(int socket, Clock::time_point deadline) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd waited{socket, POLLIN, 0};
        const int ready = ::poll(&waited, 1, static_cast<int>(std::max(left, 0ms).count()));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

// The letter by which the kernel tells what a thread does: R it computes or would, D it waits for a disk, S it waits
// for something else, T somebody stopped it, and so on. '?' when there is no such thread. `path` is that of its "stat"
// file.
char stateIn(const std::string& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 256> text{};
    const auto length = ::read(file.get(), text.data(), text.size());
    if (length <= 0) return '?';
    // The number, then the program's name in parentheses, which may hold any characters, then the letter.
    const std::string_view content(text.data(), static_cast<std::size_t>(length));
    const auto state = content.rfind(')') + 2;
    return state < content.size() ? content[state] : '?';
}

// A process that computes ends itself when it has done so for too long; on a busy machine that may take a while. One
// that waits for a disk will get its data. Its first thread may do neither while others work for it.
bool isAtWork(pid_t process) {
    const auto threads = fmt::format("/proc/{}/task", process);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(threads.c_str()), ::closedir);
    if (!listing) return false;
    while (const auto* thread = ::readdir(listing.get())) {
        const char state = stateIn(fmt::format("{}/{}/stat", threads, thread->d_name));
        if (state == 'R' || state == 'D') return true;
    }
    return false;
}

bool hasAnswerInTime(int socket, pid_t process, std::chrono::milliseconds mostInAll) {
    const auto start = Clock::now();
    if (hasNewsBy(socket, start + kMostWithoutLooking)) return true;
    for (int idleLooks = 0; idleLooks < kMostIdleLooks && Clock::now() < start + mostInAll;) {
        idleLooks = isAtWork(process) ? 0 : idleLooks + 1;
        if (hasNewsBy(socket, Clock::now() + kBetweenLooks)) return true;
    }
    return false;
}

std::optional<MessageBytes> messageFrom(int socket) {
    auto message = receiveMessage(socket);
    if (!message || !*message) return std::nullopt;
    return std::move((*message)->bytes);
}

// On return `theirs` is closed here, so that the end of the process is seen at ours.
Expected<ChildProcess> startWith(const std::string& program, FileDescriptor theirs) {
    return ChildProcess::start({program, {}, {{theirs.get(), kDecoderSocket}}});
}

}  // namespace

DecoderProcess::~DecoderProcess() {
    dropWorker();
}

std::optional<MessageBytes> DecoderProcess::answerTo(const MessageBytes& request, std::span<const int> descriptors,
                                                     std::chrono::milliseconds mostTime) {
    if (!ensureStarted()) return std::nullopt;
    std::optional<MessageBytes> answer;
    if (sendMessage(worker_->socket.get(), request, descriptors)) answer = answerIn(mostTime);
    // What is no answer to this request must not be taken for one to the next.
    if (!answer) dropWorker();
    return answer;
}

std::optional<MessageBytes> DecoderProcess::answerIn(std::chrono::milliseconds mostTime) const {
    const int socket = worker_->socket.get();
    if (!hasAnswerInTime(socket, worker_->process.id(), mostTime)) return std::nullopt;
    return messageFrom(socket);
}

bool DecoderProcess::ensureStarted() {
    if (worker_) return true;
    // A program that cannot even start, because it is missing or a library of it is, would be tried for every file.
    if (failedStarts_ >= kMostFailedStarts) return false;
    auto started = startWorker();
    if (!started) {
        ++failedStarts_;
        return false;
    }
    failedStarts_ = 0;
    worker_.emplace(*std::move(started));
    return true;
}

std::optional<DecoderProcess::Worker> DecoderProcess::startWorker() const {
    auto sockets = connectedSockets();
    if (!sockets) return std::nullopt;
    auto process = startWith(program_, std::move(sockets->second));
    if (!process) return std::nullopt;
    Worker worker{*std::move(process), std::move(sockets->first)};
    if (hasNewsBy(worker.socket.get(), Clock::now() + kMostForStart) && messageFrom(worker.socket.get())) return worker;
    worker.process.send(SIGKILL);
    return std::nullopt;
}

void DecoderProcess::dropWorker() {
    if (!worker_) return;
    // It holds nothing that an orderly end would save. One that waits for a dead disk cannot even be killed: it goes
    // when the disk answers, and is waited for elsewhere.
    worker_->process.send(SIGKILL);
    static_cast<void>(worker_->process.waitFor(kMostForDying));
    worker_.reset();
}

}  // namespace vellomar
