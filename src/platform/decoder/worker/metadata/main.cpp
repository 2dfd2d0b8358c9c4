// Reads the metadata of media files for the application, one after the other. See platform/decoder/MetadataDecoder.h.

#include "platform/decoder/CameraPropertyMessages.h"
#include "platform/decoder/MetadataMessages.h"
#include "platform/decoder/worker/DecoderMain.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/metadata/CameraPropertiesReader.h"
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

MessageBytes cameraProperties(const RequestedFile& file) {
    const auto properties = readCameraProperties(file.content);
    return properties ? cameraPropertiesAnswer(*properties) : noValueAnswer();
}

void prepareLibraries() {
    prepareImageLibrary();
    prepareVideoLibrary();
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    return decoderMain(kMostMemory, prepareLibraries,
                       {{DecoderRequest::imageMetadata, {kMostComputing, imageMetadata}},
                        {DecoderRequest::videoMetadata, {kMostComputing, videoMetadata}},
                        {DecoderRequest::cameraProperties, {kMostComputing, cameraProperties}}});
}
