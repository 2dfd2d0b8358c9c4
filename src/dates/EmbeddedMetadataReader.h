#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "dates/MetadataReader.h"
#include "platform/FileSystem.h"
#include "platform/decoder/MetadataDecoder.h"

namespace vellomar {

// Reads the files themselves: sidecars here, media files by a decoder of its own, which ends with this object. A file
// is opened and parsed once for its date and its camera, as long as nothing is asked of another file in between.
class EmbeddedMetadataReader final : public MetadataReader {
public:
    // `decoderProgram` is the path of the decoder's executable. `fileSystem` must outlive this object.
    EmbeddedMetadataReader(FileSystem& fileSystem, std::string decoderProgram);

    [[nodiscard]] std::optional<DateCandidate> sidecarCandidate(const std::string& path) override;
    [[nodiscard]] std::optional<ImageEXIFResult> readImageDate(const std::string& path) override;
    [[nodiscard]] std::optional<DateCandidate> readVideoDate(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> readImageCamera(const std::string& path) override;

private:
    struct FileAtHand {
        std::string path;
        MediaKind kind = MediaKind::image;
        MediaMetadata metadata;
    };

    // Empty where nothing could be read. Valid until the next call.
    [[nodiscard]] const MediaMetadata& metadataOf(const std::string& path, MediaKind kind);
    [[nodiscard]] MediaMetadata readFile(const std::string& path, MediaKind kind);

    FileSystem& fileSystem_;
    MetadataDecoder decoder_;
    std::optional<FileAtHand> atHand_;
};

// Readers of files on the disk, each with a decoder of its own.
class EmbeddedMetadataReaders final : public MetadataReaders {
public:
    // As for the reader.
    EmbeddedMetadataReaders(FileSystem& fileSystem, std::string decoderProgram)
        : fileSystem_(fileSystem), decoderProgram_(std::move(decoderProgram)) {}

    [[nodiscard]] std::unique_ptr<MetadataReader> open() override {
        return std::make_unique<EmbeddedMetadataReader>(fileSystem_, decoderProgram_);
    }

private:
    FileSystem& fileSystem_;
    std::string decoderProgram_;
};

}  // namespace vellomar
