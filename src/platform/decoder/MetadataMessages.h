// What the decoder is asked, and what it answers, as the bytes of messages.
#pragma once

#include <optional>

#include "platform/decoder/MediaMetadata.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {

// The request for a file's metadata; the open file travels with the message.
[[nodiscard]] MessageBytes metadataRequest(MediaKind kind);

// Nothing for bytes that are no request.
[[nodiscard]] std::optional<MediaKind> kindFromRequest(const MessageBytes& bytes);

// The answer, always short enough for a message: no date and no name of a camera is longer than 1,024 bytes, so that
// longer texts are cut there, and a video's texts are left out from the one on that has no room any more.
[[nodiscard]] MessageBytes metadataAnswer(const MediaMetadata& metadata);

// Nothing for bytes that are no answer, whatever they are.
[[nodiscard]] std::optional<MediaMetadata> metadataFromAnswer(const MessageBytes& bytes);

}  // namespace vellomar
