#include "platform/decoder/DecoderRequest.h"

namespace vellomar {

MessageBytes requestMessage(DecoderRequest request) {
    return {static_cast<std::uint8_t>(request)};
}

std::optional<DecoderRequest> requestFromMessage(const MessageBytes& bytes) {
    using enum DecoderRequest;
    for (const auto request : {imageMetadata, videoMetadata, greyRaster, jpeg})
        if (bytes == requestMessage(request)) return request;
    return std::nullopt;
}

const MessageBytes& noValueAnswer() {
    static const MessageBytes answer{'-'};
    return answer;
}

}  // namespace vellomar
