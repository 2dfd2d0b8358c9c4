// The decoder's answers to requests for metadata, as the bytes of messages.
#pragma once

#include <optional>

#include "platform/decoder/MediaMetadata.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {

// The answer, always short enough for a message: no date and no name of a camera is longer than 1,024 bytes, so that
// longer texts are cut there, and a video's texts are left out from the one on that has no room any more.
[[nodiscard]] MessageBytes metadataAnswer(const MediaMetadata& metadata);

// Nothing for bytes that are no answer, whatever they are.
[[nodiscard]] std::optional<MediaMetadata> metadataFromAnswer(const MessageBytes& bytes);

}  // namespace vellomar
