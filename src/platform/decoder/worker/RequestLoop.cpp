#include "platform/decoder/worker/RequestLoop.h"

#include <exception>

#include <sys/time.h>

#include "platform/decoder/SocketMessages.h"
#include "platform/decoder/worker/MappedFile.h"

namespace vellomar {
namespace {

// While this lives the process may compute for so long, in all its threads together, before SIGPROF ends it.
class ComputingLimit {
public:
    explicit ComputingLimit(std::chrono::microseconds most) { set(most); }
    ~ComputingLimit() { set({}); }
    ComputingLimit(const ComputingLimit&) = delete;
    ComputingLimit& operator=(const ComputingLimit&) = delete;

private:
    static void set(std::chrono::microseconds most) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(most);
        const itimerval limit{{0, 0}, {seconds.count(), (most - seconds).count()}};
        ::setitimer(ITIMER_PROF, &limit, nullptr);
    }
};

// The libraries throw what they like, and for this file only "no value" follows from it.
MessageBytes answerBy(const RequestHandler& handler, DecoderRequest request, const SocketMessage& message) {
    const ComputingLimit limit(handler.mostComputing);
    try {
        const MappedFile file(message.descriptors[0].get());
        const int output = message.descriptors.size() > 1 ? message.descriptors[1].get() : -1;
        return handler.answer({request, file.bytes(), output, thumbnailSizeFromMessage(message.bytes)});
    } catch (const std::exception&) {
        return noValueAnswer();
    }
}

MessageBytes answerTo(const SocketMessage& message, const RequestHandlers& handlers) {
    const auto request = requestFromMessage(message.bytes);
    if (!request || message.descriptors.empty()) return noValueAnswer();
    const auto handler = handlers.find(*request);
    if (handler == handlers.end()) return noValueAnswer();
    return answerBy(handler->second, *request, message);
}

}  // namespace

void serveRequests(int socket, const RequestHandlers& handlers) {
    const MessageBytes ready{'r'};
    if (!sendMessage(socket, ready)) return;
    while (true) {
        const auto message = receiveMessage(socket);
        if (!message || !*message) return;
        if (!sendMessage(socket, answerTo(**message, handlers))) return;
    }
}

}  // namespace vellomar
