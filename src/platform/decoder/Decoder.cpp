#include "platform/decoder/Decoder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kMostForStart = 10s;
constexpr auto kMostForAnswer = 800ms;
constexpr auto kMostForSlowDisk = 30s;
constexpr auto kBetweenLooks = 50ms;
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

// The letter by which the kernel tells what a process does: R it computes or would, D it waits for a disk, S it waits
// for something else, T somebody stopped it, and so on. '?' when there is no such process.
char stateOf(pid_t process) {
    const FileDescriptor file(::open(fmt::format("/proc/{}/stat", process).c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 256> text{};
    const auto length = ::read(file.get(), text.data(), text.size());
    if (length <= 0) return '?';
    // The number, then the program's name in parentheses, which may hold any characters, then the letter.
    const std::string_view content(text.data(), static_cast<std::size_t>(length));
    const auto state = content.rfind(')') + 2;
    return state < content.size() ? content[state] : '?';
}

// A process that computes ends itself when it has done so for too long; on a busy machine that may take a while. One
// that waits for a disk will get its data.
bool isWorthWaitingFor(pid_t process) {
    const char state = stateOf(process);
    return state == 'R' || state == 'D';
}

bool hasAnswerInTime(int socket, pid_t process) {
    const auto start = Clock::now();
    if (hasNewsBy(socket, start + kMostForAnswer)) return true;
    while (Clock::now() < start + kMostForSlowDisk && isWorthWaitingFor(process))
        if (hasNewsBy(socket, Clock::now() + kBetweenLooks)) return true;
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

Decoder::~Decoder() {
    dropWorker();
}

std::optional<MediaMetadata> Decoder::readMetadata(InputFile& file, MediaKind kind) {
    if (!ensureStarted()) return std::nullopt;
    const int socket = worker_->socket.get();
    std::optional<MediaMetadata> metadata;
    if (sendMessage(socket, metadataRequest(kind), file.descriptor()) && hasAnswerInTime(socket, worker_->process.id()))
        if (const auto answer = messageFrom(socket)) metadata = metadataFromAnswer(*answer);
    // What is no answer to this request must not be taken for one to the next.
    if (!metadata) dropWorker();
    return metadata;
}

bool Decoder::ensureStarted() {
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

std::optional<Decoder::Worker> Decoder::startWorker() const {
    auto sockets = connectedSockets();
    if (!sockets) return std::nullopt;
    auto process = startWith(program_, std::move(sockets->second));
    if (!process) return std::nullopt;
    Worker worker{*std::move(process), std::move(sockets->first)};
    if (hasNewsBy(worker.socket.get(), Clock::now() + kMostForStart) && messageFrom(worker.socket.get())) return worker;
    worker.process.send(SIGKILL);
    return std::nullopt;
}

void Decoder::dropWorker() {
    if (!worker_) return;
    // It holds nothing that an orderly end would save. One that waits for a dead disk cannot even be killed: it goes
    // when the disk answers, and is waited for elsewhere.
    worker_->process.send(SIGKILL);
    static_cast<void>(worker_->process.waitFor(kMostForDying));
    worker_.reset();
}

}  // namespace vellomar
