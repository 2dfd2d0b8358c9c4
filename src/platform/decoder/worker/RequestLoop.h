#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "platform/decoder/MediaMetadata.h"

namespace vellomar {

// Reads the metadata from the whole content of a file.
using MetadataRead = std::function<MediaMetadata(MediaKind kind, std::span<const std::byte> file)>;

// Says over `socket` that this process is ready, then answers one request after the other with what `read` finds, until
// the other side is gone. A request is answered whatever `read` throws; but one that takes more than 0.7 seconds of
// computing ends the process by a signal.
void serveRequests(int socket, const MetadataRead& read);

}  // namespace vellomar
