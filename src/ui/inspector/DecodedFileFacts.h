#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "places/PlaceFinder.h"
#include "platform/FileSystem.h"
#include "platform/decoder/MetadataDecoder.h"
#include "ui/inspector/FileFacts.h"

namespace vellomar {

// What a decoder process of its own finds in a file, and the place next to its coordinates. Both are made when they are
// first needed. Any thread; one file at a time.
class DecodedFileFacts final : public FileFactsReader {
public:
    // `fileSystem` must outlive this; `program` is the path of "vellomar-decoder".
    DecodedFileFacts(FileSystem& fileSystem, std::string program);

    [[nodiscard]] FileFacts read(const std::string& path) override;

private:
    [[nodiscard]] QMap<QString, QString> readMetadata(const std::string& path);
    [[nodiscard]] QString locate(const QMap<QString, QString>& metadata);

    FileSystem& fileSystem_;
    std::mutex lock_;
    MetadataDecoder decoder_;
    std::unique_ptr<PlaceFinder> places_;
};

}  // namespace vellomar
