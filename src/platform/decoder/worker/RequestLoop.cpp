#include "platform/decoder/worker/RequestLoop.h"

#include <exception>

#include <sys/time.h>

#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/SocketMessages.h"
#include "platform/decoder/worker/MappedFile.h"

namespace vellomar {
namespace {

// While this lives the process may compute for so long, in all its threads together, before SIGPROF ends it.
class ComputingLimit {
public:
    ComputingLimit() { set(kMostMicroseconds); }
    ~ComputingLimit() { set(0); }
    ComputingLimit(const ComputingLimit&) = delete;
    ComputingLimit& operator=(const ComputingLimit&) = delete;

private:
    static constexpr suseconds_t kMostMicroseconds = 700'000;

    static void set(suseconds_t microseconds) {
        const itimerval limit{{0, 0}, {0, microseconds}};
        ::setitimer(ITIMER_PROF, &limit, nullptr);
    }
};

// The libraries throw what they like; a file that made them do so has no metadata.
MediaMetadata metadataOf(int file, MediaKind kind, const MetadataRead& read) {
    try {
        const MappedFile content(file);
        return read(kind, content.bytes());
    } catch (const std::exception&) {
        return {};
    }
}

MessageBytes answerTo(const SocketMessage& request, const MetadataRead& read) {
    const auto kind = kindFromRequest(request.bytes);
    if (!kind || !request.descriptor.isOpen()) return metadataAnswer({});
    const ComputingLimit limit;
    return metadataAnswer(metadataOf(request.descriptor.get(), *kind, read));
}

}  // namespace

void serveRequests(int socket, const MetadataRead& read) {
    const MessageBytes ready{'r'};
    if (!sendMessage(socket, ready)) return;
    while (true) {
        const auto request = receiveMessage(socket);
        if (!request || !*request) return;
        if (!sendMessage(socket, answerTo(**request, read))) return;
    }
}

}  // namespace vellomar
