// Reads the metadata of media files for the application, one after the other. See platform/decoder/MetadataDecoder.h.

#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/worker/Confinement.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/RequestLoop.h"
#include "platform/decoder/worker/metadata/ImagePropertiesReader.h"
#include "platform/decoder/worker/metadata/VideoMetadataReader.h"

namespace vellomar {
namespace {

constexpr std::size_t kMostMemory = std::size_t{1} << 30U;
constexpr std::chrono::milliseconds kMostComputing{700};

MessageBytes imageMetadata(const RequestedFile& file) {
    return metadataAnswer({readImageProperties(file.content), {}});
}

MessageBytes videoMetadata(const RequestedFile& file) {
    return metadataAnswer({readImageProperties(file.content), readVideoMetadata(file.content)});
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    constexpr int kNoLimits = 1;
    if (!limitResources(kMostMemory)) return kNoLimits;
    prepareImageLibrary();
    prepareVideoLibrary();
    // A kernel without filters is no reason to read no photos: the process still stands apart, without privileges.
    static_cast<void>(confine());
    serveRequests(kDecoderSocket, {{DecoderRequest::imageMetadata, {kMostComputing, imageMetadata}},
                                   {DecoderRequest::videoMetadata, {kMostComputing, videoMetadata}}});
    // Nothing here needs an orderly end, and destructors of libraries may want what is not allowed any more.
    _exit(0);
}
