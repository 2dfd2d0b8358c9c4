#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <span>

#include "platform/decoder/DecoderRequest.h"

namespace vellomar {

// A file to be read.
struct RequestedFile {
    DecoderRequest request;
    std::span<const std::byte> content;
    int output = -1;  // open file to write to; negative when none came with the request
    int size = 0;     // of the thumbnail that is asked for; 0 for other requests
};

// What answers requests of one kind.
struct RequestHandler {
    std::chrono::microseconds mostComputing;  // in all threads together
    std::function<MessageBytes(const RequestedFile& file)> answer;
};

using RequestHandlers = std::map<DecoderRequest, RequestHandler>;

// Says over `socket` that this process is ready, then answers one request after the other as `handlers` do, until the
// other side is gone. A request that no handler is for, or whose handler throws, has no value; one that takes more
// computing than it may ends the process by a signal.
void serveRequests(int socket, const RequestHandlers& handlers);

}  // namespace vellomar
