#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/decoder/CameraProperties.h"
#include "platform/decoder/DecoderProcess.h"
#include "platform/decoder/MediaMetadata.h"

namespace vellomar {

// Reads what media files say about themselves, in a process of its own; see DecoderProcess. One thread at a time;
// nothing throws.
class MetadataDecoder {
public:
    // `program` is the path of "vellomar-decoder".
    explicit MetadataDecoder(std::string program);

    // The metadata of an open file, wherever it has been read to. Nothing if the decoder could not tell: it died over
    // the file, or it needed more time. That is 0.7 seconds of computing; and 0.8 seconds in all, unless it waits for
    // a disk that is slow to answer, where it gets up to 30 seconds. Blocks for as long. A file without metadata has
    // empty ones.
    [[nodiscard]] std::optional<MediaMetadata> readMetadata(InputFile& file, MediaKind kind);

    // What the camera recorded of the image in an open file, wherever it has been read to. Nothing if the file is no
    // image, as a video is none, or a broken one of which nothing can be read, or if the decoder could not tell, as
    // above. An image without metadata has at most a width and a height.
    [[nodiscard]] std::optional<CameraProperties> readProperties(InputFile& file);

private:
    DecoderProcess process_;
};

}  // namespace vellomar
