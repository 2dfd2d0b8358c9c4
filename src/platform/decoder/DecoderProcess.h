#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"
#include "platform/decoder/DecoderRequest.h"

namespace vellomar {

// A process that looks into media files for this one: the content of a file is never parsed here. The libraries that
// know the formats crash, hang or eat memory over broken and hostile files; each time that costs the one file its value
// and nothing else. The decoder's process may open nothing, reach no network and start no program: it gets each file as
// an open descriptor.
//
// It is started by the first request, started anew after it died or was ended, and gone when this object is. One thread
// at a time; nothing throws.
class DecoderProcess {
public:
    // `program` is the path of the decoder's executable. A request may take `mostTime`; but a decoder that neither
    // computes nor waits for a disk is given up after 0.8 seconds.
    DecoderProcess(std::string program, std::chrono::milliseconds mostTime)
        : program_(std::move(program)), mostTime_(mostTime) {}
    ~DecoderProcess();
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;

    // What `read` makes of the answer to a request about an open file; `descriptors` begin with it. Nothing if the file
    // gives no value, if the decoder died over it, or if it needed too much time. `read` makes nothing of bytes that
    // are no answer, after which the process goes. Blocks for as long as the request takes.
    template <typename Value>
    [[nodiscard]] std::optional<Value> ask(DecoderRequest request, std::span<const int> descriptors,
                                           const std::function<std::optional<Value>(const MessageBytes&)>& read) {
        return ask<Value>(requestMessage(request), descriptors, mostTime_, read);
    }

    // As above, for a request whose message says more than what is asked, and which may take another time.
    template <typename Value>
    [[nodiscard]] std::optional<Value> ask(const MessageBytes& request, std::span<const int> descriptors,
                                           std::chrono::milliseconds mostTime,
                                           const std::function<std::optional<Value>(const MessageBytes&)>& read) {
        const auto answer = answerTo(request, descriptors, mostTime);
        if (!answer || *answer == noValueAnswer()) return std::nullopt;
        auto value = read(*answer);
        if (!value) dropWorker();
        return value;
    }

private:
    struct Worker {
        ChildProcess process;
        FileDescriptor socket;
    };

    [[nodiscard]] std::optional<MessageBytes> answerTo(const MessageBytes& request, std::span<const int> descriptors,
                                                       std::chrono::milliseconds mostTime);
    [[nodiscard]] std::optional<MessageBytes> answerIn(std::chrono::milliseconds mostTime) const;
    [[nodiscard]] bool ensureStarted();
    [[nodiscard]] std::optional<Worker> startWorker() const;
    void dropWorker();

    std::string program_;
    std::chrono::milliseconds mostTime_;
    std::optional<Worker> worker_;
    int failedStarts_ = 0;  // in a row
};

}  // namespace vellomar
