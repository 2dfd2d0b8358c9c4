// The decoder: reads media files for the application, one request after the other. See platform/decoder/Decoder.h.

#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/worker/Confinement.h"
#include "platform/decoder/worker/ImagePropertiesReader.h"
#include "platform/decoder/worker/RequestLoop.h"
#include "platform/decoder/worker/VideoMetadataReader.h"

namespace vellomar {
namespace {

MediaMetadata metadataOf(MediaKind kind, std::span<const std::byte> file) {
    return {readImageProperties(file), kind == MediaKind::video ? readVideoMetadata(file) : VideoMetadata{}};
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    constexpr int kNoLimits = 1;
    if (!limitResources()) return kNoLimits;
    prepareImageLibraries();
    prepareVideoLibrary();
    // A kernel without filters is no reason to read no photos: the process still stands apart, without privileges.
    static_cast<void>(confine());
    serveRequests(kDecoderSocket, metadataOf);
    // Nothing here needs an orderly end, and destructors of libraries may want what is not allowed any more.
    _exit(0);
}
