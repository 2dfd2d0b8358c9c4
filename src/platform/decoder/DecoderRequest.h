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
};

// The request as the bytes of a message.
[[nodiscard]] MessageBytes requestMessage(DecoderRequest request);

// Nothing for bytes that are no request.
[[nodiscard]] std::optional<DecoderRequest> requestFromMessage(const MessageBytes& bytes);

// The answer to any request about a file of which there is nothing to tell.
[[nodiscard]] const MessageBytes& noValueAnswer();

}  // namespace vellomar
