// What the decoder can be asked about a file. The open file travels with the request.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/decoder/SocketMessages.h"

namespace vellomar {

enum class DecoderRequest : std::uint8_t {
    imageMetadata = 'i',
    videoMetadata = 'v',
    greyRaster = 'g',
    // With a second descriptor, which the picture is written to.
    jpeg = 'j',
    // With a second descriptor likewise, and with the size that is wanted.
    thumbnail = 't',
    cameraProperties = 'c',
};

// The request as the bytes of a message.
[[nodiscard]] MessageBytes requestMessage(DecoderRequest request);

// The request for a thumbnail of a size of 0 to 65,535 pixels.
[[nodiscard]] MessageBytes thumbnailRequestMessage(int size);

// Nothing for bytes that are no request.
[[nodiscard]] std::optional<DecoderRequest> requestFromMessage(const MessageBytes& bytes);

// The size that a request for a thumbnail asks for; 0 for any other bytes.
[[nodiscard]] int thumbnailSizeFromMessage(const MessageBytes& bytes);

// The answer to any request about a file of which there is nothing to tell.
[[nodiscard]] const MessageBytes& noValueAnswer();

}  // namespace vellomar
