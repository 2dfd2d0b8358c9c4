#include "dates/EmbeddedMetadataReader.h"

#include <utility>

#include "dates/CameraText.h"
#include "dates/ImageDate.h"
#include "dates/SidecarDate.h"
#include "dates/VideoDate.h"
#include "engine/model/FileKind.h"

namespace vellomar {
namespace {

MediaKind kindByName(const std::string& path) {
    return fileKindOf(path) == FileKind::video ? MediaKind::video : MediaKind::image;
}

}  // namespace

EmbeddedMetadataReader::EmbeddedMetadataReader(FileSystem& fileSystem, std::string decoderProgram)
    : fileSystem_(fileSystem), decoder_(std::move(decoderProgram)) {}

std::optional<DateCandidate> EmbeddedMetadataReader::sidecarCandidate(const std::string& path) {
    return ExifUtils::sidecarCandidate(fileSystem_, path);
}

std::optional<ImageEXIFResult> EmbeddedMetadataReader::readImageDate(const std::string& path) {
    return ExifUtils::imageDate(metadataOf(path, MediaKind::image).image);
}

std::optional<DateCandidate> EmbeddedMetadataReader::readVideoDate(const std::string& path) {
    return ExifUtils::videoDate(metadataOf(path, MediaKind::video).video);
}

std::optional<std::string> EmbeddedMetadataReader::readImageCamera(const std::string& path) {
    const auto& image = metadataOf(path, kindByName(path)).image;
    return ExifUtils::cameraText(image.make, image.model);
}

const MediaMetadata& EmbeddedMetadataReader::metadataOf(const std::string& path, MediaKind kind) {
    // What was looked for in a video holds all that is looked for in an image.
    const bool isKnown =
        atHand_ && atHand_->path == path && (atHand_->kind == kind || atHand_->kind == MediaKind::video);
    if (!isKnown) atHand_ = {path, kind, readFile(path, kind)};
    return atHand_->metadata;
}

MediaMetadata EmbeddedMetadataReader::readFile(const std::string& path, MediaKind kind) {
    const auto file = fileSystem_.openForReading(path, true);
    if (!file) return {};
    return decoder_.readMetadata(**file, kind).value_or(MediaMetadata{});
}

}  // namespace vellomar
