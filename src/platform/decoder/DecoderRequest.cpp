#include "platform/decoder/DecoderRequest.h"

namespace vellomar {
namespace {

// The letter, then the size in two bytes, the more significant one first.
constexpr std::size_t kLengthWithSize = 3;

}  // namespace

MessageBytes requestMessage(DecoderRequest request) {
    return {static_cast<std::uint8_t>(request)};
}

std::optional<DecoderRequest> requestFromMessage(const MessageBytes& bytes) {
    using enum DecoderRequest;
    for (const auto request : {imageMetadata, videoMetadata, greyRaster, jpeg, cameraProperties})
        if (bytes == requestMessage(request)) return request;
    if (thumbnailSizeFromMessage(bytes) > 0) return thumbnail;
    return std::nullopt;
}

MessageBytes thumbnailRequestMessage(int size) {
    const auto number = static_cast<unsigned>(size);
    return {static_cast<std::uint8_t>(DecoderRequest::thumbnail), static_cast<std::uint8_t>(number >> 8U),
            static_cast<std::uint8_t>(number & 0xffU)};
}

int thumbnailSizeFromMessage(const MessageBytes& bytes) {
    if (bytes.size() != kLengthWithSize || bytes[0] != static_cast<std::uint8_t>(DecoderRequest::thumbnail)) return 0;
    return bytes[1] << 8U | bytes[2];
}

const MessageBytes& noValueAnswer() {
    static const MessageBytes answer{'-'};
    return answer;
}

}  // namespace vellomar
