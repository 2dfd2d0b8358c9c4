#include "platform/decoder/MetadataDecoder.h"

#include <array>
#include <utility>

#include "platform/decoder/CameraPropertyMessages.h"
#include "platform/decoder/MetadataMessages.h"

namespace vellomar {
namespace {

constexpr std::chrono::seconds kMostTimeOfFile{30};

}  // namespace

MetadataDecoder::MetadataDecoder(std::string program) : process_(std::move(program), kMostTimeOfFile) {}

std::optional<MediaMetadata> MetadataDecoder::readMetadata(InputFile& file, MediaKind kind) {
    const auto request = kind == MediaKind::image ? DecoderRequest::imageMetadata : DecoderRequest::videoMetadata;
    return process_.ask<MediaMetadata>(request, std::array{file.descriptor()}, metadataFromAnswer);
}

std::optional<CameraProperties> MetadataDecoder::readProperties(InputFile& file) {
    return process_.ask<CameraProperties>(DecoderRequest::cameraProperties, std::array{file.descriptor()},
                                          cameraPropertiesFromAnswer);
}

}  // namespace vellomar
